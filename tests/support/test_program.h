#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/program.h"
#include "platform/curl_transfer.h"
#include "platform/posix_files.h"
#include "settings/names.h"
#include "settings/sqlite_store.h"
#include "settings/value_text.h"
#include "tests/support/fake_clock.h"
#include "tests/support/recording_shell.h"
#include "tests/support/scripted_boxes.h"
#include "tests/support/scripted_server.h"
#include "tests/support/temp_folder.h"
#include "tests/support/test_pump.h"

namespace tallyo::test {

// One session of the real program on real files, a real store and a real HTTP connection to a
// scripted service, with a clock that the test sets. Restart() begins the next session on the same
// folder without quitting the last one; Quit first for a proper end.
class TestProgram {
 public:
  // What events the program's pump runs while it waits; may be set at any time.
  std::function<void()> Event;

  FakeClock clock;
  ScriptedServer server;
  TempFolder folder;

  // What stands between the program and its machine from the next session on, where it is set.
  std::function<Machine(const Machine& real)> Between;

  // The window's defaults unless a test sets them before Start.
  bool appendAfterLast = false;
  bool countOnce = false;

  TestProgram() { NewSession(); }

  // Begins a session; the program is not started yet.
  void NewSession() {
    session_.reset();
    session_ = std::make_unique<Session>(*this);
  }

  // Begins a session and starts it.
  void Start() {
    NewSession();
    P().Dispatch([&] { P().StartProgram(); });
  }

  // Ends the session properly and begins and starts the next.
  void Restart() {
    P().Quit();
    Start();
  }

  [[nodiscard]] Program& P() { return session_->program; }
  [[nodiscard]] MainForm& Form() { return P().form; }
  [[nodiscard]] ScriptedBoxes& Boxes() { return session_->boxes; }
  // The documents that were opened.
  [[nodiscard]] const std::vector<std::filesystem::path>& Opened() {
    return session_->shell.opened;
  }
  // What the desktop was told about starting the program at logon.
  [[nodiscard]] const std::vector<bool>& RunAtLogon() { return session_->shell.runAtLogon; }
  [[nodiscard]] SqliteStore& Store() { return session_->store; }

  [[nodiscard]] std::string Setting(std::string_view name) {
    return QuerySettingValue(Store(), Hive::LocalMachine, names::SettingsKey, name);
  }
  void Set(std::string_view name, std::string_view text) {
    SetSettingValue(Store(), Hive::LocalMachine, names::SettingsKey, name, text);
  }
  [[nodiscard]] std::string Record(std::string_view number) {
    return QuerySettingValue(Store(), Hive::LocalMachine,
                             std::string(names::MonitorFilesKey) + std::string(number), number);
  }
  void SetRecord(std::string_view number, std::string_view text) {
    SetSettingValue(Store(), Hive::LocalMachine,
                    std::string(names::MonitorFilesKey) + std::string(number), number, text);
  }

  // Files under the AppDir, by their path in it.
  [[nodiscard]] bool HasFile(std::string_view path) {
    return PosixFiles().Exists(folder.Path() / path);
  }
  [[nodiscard]] std::string FileText(std::string_view path) {
    return PosixFiles().Read(folder.Path() / path);
  }
  void WriteFile(std::string_view path, std::string_view text) {
    const std::filesystem::path file = folder.Path() / path;
    std::filesystem::create_directories(file.parent_path());
    PosixFiles().Replace(file, text, file.parent_path() / "work");
  }

  // An account that the service accepts: company Acme, account mysite, good until `exp`, `max`
  // slots. It is stored in the settings too where `stored` says so.
  void GiveAccount(int max = 10, std::string_view exp = "01/15/2027", bool stored = true) {
    server.Answer("/Tallyo/accounts/mysite.txt", "opn=01/15/2014,max=" + std::to_string(max) +
                                                     ",exp=" + std::string(exp) +
                                                     ",ban=no,com=Acme,acc=mysite\n");
    if (stored) {
      Set(names::kUser, "Acme");
      Set(names::kAccount, "mysite");
    }
  }

  // What the service replies to a request for the counters.
  void GiveCounters(std::string_view reply) {
    server.Answer("/cgi-bin/Tallyo/devstats.cgi?account=mysite.txt&action=show", reply);
  }

 private:
  struct Session {
    explicit Session(TestProgram& test)
        : store(test.folder.Path() / "settings.db", StoreAccess::ReadWrite),
          transfer("Tallyo/test"),
          pump([&test] {
            if (test.Event) {
              test.Event();
            }
          }),
          boxes(pump),
          program({.appDir = test.folder.Path(),
                   .serviceBaseUrl = test.server.Url(),
                   .appendAfterLast = test.appendAfterLast,
                   .countOnce = test.countOnce},
                  MachineFor(test)) {}

    Machine MachineFor(const TestProgram& test) {
      const Machine real{.clock = test.clock,
                         .files = files,
                         .transfer = transfer,
                         .store = store,
                         .pump = pump,
                         .boxes = boxes,
                         .shell = shell};
      return test.Between ? test.Between(real) : real;
    }

    PosixFiles files;
    SqliteStore store;
    CurlTransfer transfer;
    TestPump pump;
    ScriptedBoxes boxes;
    RecordingShell shell;
    Program program;
  };

  std::unique_ptr<Session> session_;
};

}  // namespace tallyo::test
