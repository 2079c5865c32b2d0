#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <set>
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

using Words = std::vector<std::string>;

// Runs the console's commands one after the other on one AppDir against a scripted service.
class ConsoleRunner {
 public:
  FakeClock clock;
  ScriptedServer server;
  TempFolder folder;

  // What the last command did.
  std::string out;
  std::string err;
  int status = 0;

  ConsoleRunner() {
    clock.Set(2026, 6, 15, 12, 0, 0);
    server.Answer("/Tallyo/accounts/mysite.txt",
                  "opn=01/15/2014,max=10,exp=01/15/2027,ban=no,com=Acme,acc=mysite\n");
    server.Answer(kAdd, "<P>ok\n");
    server.Answer(kDelete, "<P>ok\n");
  }

  // The exit status.
  int Run(Words words) {
    std::ostringstream outStream;
    std::ostringstream errStream;
    words.insert(words.begin(),
                 {"--app-dir", folder.Path().string(), "--service-url", server.Url()});
    status = RunCommandLine(words, {.clock = clock,
                                    .out = outStream,
                                    .err = errStream,
                                    .terminal = -1,
                                    .defaultAppDir = "",
                                    .defaultServiceUrl = ""});
    out = outStream.str();
    err = errStream.str();
    return status;
  }

  nlohmann::json Json(Words words) {
    words.insert(words.begin(), "--json");
    Run(std::move(words));
    return nlohmann::json::parse(out);
  }

  void SaveAccount() { ASSERT_EQ(Run({"account", "save", "Acme", "mysite"}), 0) << err; }
  int AddLink(const std::string& reference, const std::string& name) {
    return Run({"links", "add", "http://files/" + reference, "--name", name});
  }
  // The account, and links of these names whose references are "NAME.zip".
  void MonitorLinks(const Words& names) {
    SaveAccount();
    for (const std::string& name : names) {
      ASSERT_EQ(AddLink(name + ".zip", name), 0) << err;
    }
  }

  void GiveCounters(const std::string& reply) { server.Answer(kShow, reply); }
  void Refresh(const std::string& counters) {
    GiveCounters(counters);
    ASSERT_EQ(Run({"refresh"}), 0) << err;
  }

  [[nodiscard]] std::string File(const std::string& path) const {
    return PosixFiles().Read(folder.Path() / path);
  }
  // All files of the AppDir with their times.
  [[nodiscard]] std::set<std::string> Listing() const {
    std::set<std::string> entries;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.Path())) {
      entries.insert(entry.path().string() + " " +
                     std::to_string(entry.last_write_time().time_since_epoch().count()));
    }
    return entries;
  }
  [[nodiscard]] std::string Setting(std::string_view name) const {
    SqliteStore store(folder.Path() / "settings.db", StoreAccess::ReadOnly);
    return QuerySettingValue(store, Hive::LocalMachine, names::SettingsKey, name);
  }

  static constexpr const char* kShow =
      "/cgi-bin/Tallyo/devstats.cgi?account=mysite.txt&action=show";
  static constexpr const char* kAdd = "/cgi-bin/Tallyo/devstats.cgi?account=mysitef.txt&action=add";
  static constexpr const char* kDelete =
      "/cgi-bin/Tallyo/devstats.cgi?account=mysitef.txt&action=del";
};

}  // namespace tallyo::test
