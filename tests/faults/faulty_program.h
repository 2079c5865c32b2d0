#pragma once

#include <optional>
#include <string>

#include "tests/faults/failing_calls.h"
#include "tests/support/failing_store.h"
#include "tests/support/failing_transfer.h"
#include "tests/support/kept_data.h"
#include "tests/support/monitored_program.h"

namespace tallyo::test {

// One thing that goes wrong.
struct Fault {
  std::string name;
  StoreFault store = StoreFault::None;
  TransferFault transfer = TransferFault::None;
  CallFault calls = {};
  bool onlyOnce = false;  // else also from a call on for good
};

// A program whose machine has one fault that strikes when its plan says so. It has an account,
// three links with counters, of which two have hits of before, and a service that answers
// everything. As on the terminal, a session may add behind the last link and counts each growth
// once.
class FaultyProgram : public MonitoredProgram {
 public:
  explicit FaultyProgram(const Fault& fault) : calls_(folder.Path().native(), plan, fault.calls) {
    appendAfterLast = countOnce = true;
    GiveAccount();
    GiveCounters("<P>15 A.zip\n<P>9 B.zip\n<P>4 C.zip\n<P>1 D.zip\n<P>2 E.zip\n<P>3 F.zip\n");
    server.Answer("/cgi-bin/Tallyo/devstats.cgi?account=mysitef.txt", "<P>ok\n");
    Set(names::kBytesTransTotal, "1000");
    Set(names::kDefUrl, "http://former/");
    GiveLinks({"A", "B", "C"});
    WriteFile("Data/LastRead.dat", "A=10,B=7,C=1,\r\n");
    WriteFile("Data/2026/A-Jan", "15123\r\n14117\r\n");
    WriteFile("Data/2026/B-Jan", "15115\r\n");
    Between = [this, fault](const Machine& real) -> Machine {
      return {.clock = real.clock,
              .files = real.files,
              .transfer = transfer_.emplace(real.transfer, plan, fault.transfer),
              .store = store_.emplace(real.store, plan, fault.store),
              .pump = real.pump,
              .boxes = real.boxes,
              .shell = real.shell};
    };
  }

  // What is stored, as another program sees it.
  [[nodiscard]] KeptData Data() {
    SqliteStore store(folder.Path() / "settings.db", StoreAccess::ReadWrite);
    return ReadKeptData(folder.Path(), store);
  }

  FaultPlan plan;

 private:
  FailingCalls calls_;
  std::optional<FailingTransfer> transfer_;
  std::optional<FailingStore> store_;
};

}  // namespace tallyo::test
