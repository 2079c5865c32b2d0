#include <algorithm>
#include <string>

#include "settings/names.h"
#include "tests/fuzz/findings.h"
#include "tests/fuzz/input_parts.h"
#include "tests/fuzz/memory_machine.h"
#include "tests/fuzz/plain_session.h"
#include "tests/fuzz/plain_text.h"

namespace tallyo::fuzz {
namespace {

constexpr int kNoon = 12 * 3600;
constexpr int kBetweenRefreshes = 3000;  // seconds: a part of an hour, so that hours repeat

void NoteIn(Findings& findings, MemoryMachine& machine) {
  const ReportList& list = machine.program.form.ListView1;
  for (int row = 1; row <= list.RowCount(); ++row) {
    findings.Note("row", list.RowText(row) + "|" + list.Value(row, 1) + "|" + list.Value(row, 2) +
                             "|" + list.Value(row, 3));
  }
  // What it keeps for the case that it is killed is the program's own affair.
  for (const auto& [path, content] : machine.files.contents) {
    if (path != "/a/Data/LastRead.now") {
      findings.Note(path, content);
    }
  }
  findings.Note("label 8", machine.program.form.Label8.Caption());
  findings.Note("last check", static_cast<double>(machine.program.state.LastCheckTime));
}

void Compare(MemoryMachine& machine, const PlainSession& session) {
  Findings program;
  Findings plain;
  NoteIn(program, machine);
  session.NoteIn(plain);
  RequireSame(program, plain);
}

}  // namespace
}  // namespace tallyo::fuzz

// The stored links, a line each; the snapshot, no file where it is empty; the refresh interval in
// hours; the seconds of the day of the last check; "1" where growth is to be counted once; and the
// service's reply to every refresh, five at most.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  using namespace tallyo::fuzz;
  InputParts parts(data, size);
  const std::vector<std::string> records = PlainLines(parts.Next());
  const std::string snapshot = parts.Next();
  const std::string interval = parts.Next();
  const auto lastCheck = static_cast<float>(std::clamp(PlainNumber(parts.Next()), 0.0, 86399.0));
  const bool countOnce = parts.Next() == "1";

  MemoryMachine machine;
  PlainSession session(records, {interval, lastCheck, countOnce});
  machine.Set(tallyo::names::kUser, "c");
  machine.Set(tallyo::names::kAccount, "a");
  machine.Set(tallyo::names::kCountOnce, countOnce ? "1" : "0");
  machine.transfer.accountRecord = "max=32000,exp=01/01/2027,ban=no,com=c,acc=a\n";
  machine.SetRecords(records);
  if (!snapshot.empty()) {
    machine.files.contents["/a/Data/LastRead.dat"] = snapshot;
    session.files = machine.files.contents;
  }

  machine.program.StartProgram();
  session.Start();
  machine.program.form.Text2.SetText(interval);
  machine.program.state.LastCheckTime = lastCheck;
  Compare(machine, session);
  for (int count = 0; count < 5 && !parts.UsedUp(); ++count) {
    machine.transfer.reply = parts.Next();
    machine.program.Dispatch([&] { machine.program.refresh.RefreshStatistics(); });
    session.Refresh(machine.transfer.reply, kNoon + count * kBetweenRefreshes);
    Compare(machine, session);
    machine.clock.Advance(kBetweenRefreshes);
  }
  machine.program.Quit();
  session.Quit();
  Compare(machine, session);
  return 0;
}
