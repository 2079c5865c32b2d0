#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/program.h"
#include "platform/curl_transfer.h"
#include "platform/posix_files.h"
#include "settings/sqlite_store.h"
#include "tests/faults/failing_calls.h"
#include "tests/support/failing_files.h"
#include "tests/support/failing_store.h"
#include "tests/support/failing_transfer.h"
#include "tests/support/fake_clock.h"
#include "tests/support/scripted_boxes.h"
#include "tests/support/scripted_server.h"
#include "tests/support/test_pump.h"

namespace tallyo::test {

// One thing that goes wrong.
struct Fault {
  std::string name;
  FileFault files = FileFault::None;
  StoreFault store = StoreFault::None;
  TransferFault transfer = TransferFault::None;
  CallFault calls = {};
  bool onlyOnce = false;  // else also from a call on for good
};

// A session of the real program on a folder, at noon of 2026-01-15, whose machine has one fault
// that strikes when its plan says so. As on the terminal, a session may add behind the last link
// and counts each growth once. Ends like a killed one unless it is quit.
class FaultyProgram {
 public:
  FaultyProgram(const std::filesystem::path& folder, const ScriptedServer& server,
                const Fault& fault)
      : calls_(folder.native(), plan, fault.calls),
        folder_(folder),
        baseUrl_(server.Url()),
        fault_(fault) {}

  // Opens the store and puts the program together, without starting it.
  void Open() { session_.emplace(*this); }
  void Start() {
    Open();
    P().Dispatch([this] { P().StartProgram(); });
  }

  [[nodiscard]] Program& P() { return session_->program; }
  [[nodiscard]] MainForm& Form() { return P().form; }
  [[nodiscard]] const ScriptedBoxes& Boxes() const { return session_->boxes; }
  [[nodiscard]] SettingsStore& Store() { return session_->realStore; }

  // The outcome of a refresh; nothing where it did not come to one.
  std::optional<RefreshOutcome> Refresh() {
    std::optional<RefreshOutcome> outcome;
    P().Dispatch([&] { outcome = P().refresh.RefreshStatistics(); });
    return outcome;
  }

  FaultPlan plan;

 private:
  struct NoShell final : Shell {
    void Open(const std::filesystem::path& /*document*/) override {}
    void RunAtLogon(bool /*run*/) override {}
  };

  struct Session {
    explicit Session(FaultyProgram& test)
        : files(realFiles, test.plan, test.fault_.files),
          realStore(test.folder_ / "settings.db", StoreAccess::ReadWrite),
          store(realStore, test.plan, test.fault_.store),
          transfer(realTransfer, test.plan, test.fault_.transfer),
          boxes(pump),
          program({.appDir = test.folder_,
                   .serviceBaseUrl = test.baseUrl_,
                   .appendAfterLast = true,
                   .countOnce = true},
                  {.clock = clock,
                   .files = files,
                   .transfer = transfer,
                   .store = store,
                   .pump = pump,
                   .boxes = boxes,
                   .shell = shell}) {}

    FakeClock clock;
    PosixFiles realFiles;
    FailingFiles files;
    SqliteStore realStore;
    FailingStore store;
    CurlTransfer realTransfer{"Tallyo/test"};
    FailingTransfer transfer;
    TestPump pump;
    ScriptedBoxes boxes;
    NoShell shell;
    Program program;
  };

  FailingCalls calls_;
  std::filesystem::path folder_;
  std::string baseUrl_;
  Fault fault_;
  std::optional<Session> session_;
};

}  // namespace tallyo::test
