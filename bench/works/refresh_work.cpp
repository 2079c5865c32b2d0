// Refreshes of the whole program, without a window: the account's check, counters, rows, daily
// files where they are due, traffic totals, recovery file. Usage: refresh-work COUNT PORT APPDIR
// due|notdue

#include <iostream>
#include <stdexcept>
#include <string>

#include "bench/rounds.h"
#include "bench/works/bench_program.h"

int main(int argc, char** argv) {
  if (argc != 5) {
    std::cerr << "Usage: refresh-work COUNT PORT APPDIR due|notdue\n";
    return 2;
  }
  using namespace tallyo;
  const bool due = std::string(argv[4]) == "due";
  bench::StoreLinks(argv[3], std::stoi(argv[1]));
  bench::BenchProgram t(argv[3], "http://127.0.0.1:" + std::string(argv[2]) + "/");
  Program& program = t.program;
  program.StartProgram();
  const auto refresh = [&] {
    if (program.refresh.RefreshStatistics() != RefreshOutcome::Completed) {
      throw std::runtime_error("the refresh did not come to its end");
    }
  };
  const auto setDue = [&] {
    program.state.LastCheckTime =
        due ? 0.0F : static_cast<float>(SystemClock().Now().secondsSinceMidnight);
  };
  setDue();
  refresh();  // makes the rows
  setDue();
  bench::ServeRounds(refresh, setDue);
}
