#pragma once

#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "cli/command_line.h"
#include "platform/posix_files.h"
#include "settings/names.h"
#include "settings/sqlite_store.h"
#include "settings/value_text.h"
#include "tests/support/fake_clock.h"
#include "tests/support/scripted_server.h"
#include "tests/support/temp_folder.h"

namespace tallyo::test {

// Runs the console's commands one after the other on one AppDir against a scripted service.
class ConsoleRunner {
 public:
  FakeClock clock;
  ScriptedServer server;
  TempFolder folder;

  // What the last command did.
  std::string out;
  std::string err;

  ConsoleRunner() {
    clock.Set(2026, 6, 15, 12, 0, 0);
    server.Answer("/Tallyo/accounts/mysite.txt",
                  "opn=01/15/2014,max=10,exp=01/15/2027,ban=no,com=Acme,acc=mysite\n");
    server.Answer(kAdd, "<P>ok\n");
    server.Answer(kDelete, "<P>ok\n");
  }

  // The exit status.
  int Run(std::vector<std::string> words) {
    std::ostringstream outStream;
    std::ostringstream errStream;
    words.insert(words.begin(),
                 {"--app-dir", folder.Path().string(), "--service-url", server.Url()});
    const int result = RunCommandLine(words, {.clock = clock,
                                              .out = outStream,
                                              .err = errStream,
                                              .terminal = -1,
                                              .defaultAppDir = "",
                                              .defaultServiceUrl = ""});
    out = outStream.str();
    err = errStream.str();
    return result;
  }

  nlohmann::json Json(std::vector<std::string> words) {
    words.insert(words.begin(), "--json");
    status = Run(std::move(words));
    return nlohmann::json::parse(out);
  }

  int AddLink(const std::string& reference, const std::string& name) {
    return Run({"links", "add", "http://files/" + reference, "--name", name});
  }

  void GiveCounters(const std::string& reply) { server.Answer(kShow, reply); }

  [[nodiscard]] std::string File(const std::string& path) const {
    return PosixFiles().Read(folder.Path() / path);
  }
  [[nodiscard]] bool HasFile(const std::string& path) const {
    return PosixFiles().Exists(folder.Path() / path);
  }
  [[nodiscard]] std::string Setting(std::string_view name) const {
    SqliteStore store(folder.Path() / "settings.db", StoreAccess::ReadOnly);
    return QuerySettingValue(store, Hive::LocalMachine, names::SettingsKey, name);
  }

  int status = 0;  // of the last Json

  static constexpr const char* kShow =
      "/cgi-bin/Tallyo/devstats.cgi?account=mysite.txt&action=show";
  static constexpr const char* kAdd = "/cgi-bin/Tallyo/devstats.cgi?account=mysitef.txt&action=add";
  static constexpr const char* kDelete =
      "/cgi-bin/Tallyo/devstats.cgi?account=mysitef.txt&action=del";
};

}  // namespace tallyo::test
