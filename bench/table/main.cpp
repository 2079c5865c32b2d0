// Measures Tallyo against its floors and prints the table. bench/run builds everything and calls
// it.

#include <algorithm>
#include <array>
#include <csignal>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "bench/table/interruption.h"
#include "bench/table/measure.h"
#include "bench/table/options.h"
#include "bench/table/table.h"
#include "bench/table/work_folder.h"

namespace {

namespace fs = std::filesystem;
using namespace tallyo::bench;

struct Work {
  const char* name;
  void (*measure)(const Place& place, const Report& report);
};

constexpr std::array kWorks = {Work{"refresh", &MeasureRefresh},
                               Work{"refresh with growth", &MeasureGrowth},
                               Work{"tallyo-cli", &MeasureConsole},
                               Work{"window, start and memory", &MeasureWindowStart},
                               Work{"window idle", &MeasureWindowIdle},
                               Work{"daily screen", &MeasureMonthChoice},
                               Work{"page scan", &MeasurePageScan},
                               Work{"setting writes", &MeasureSettingWrites},
                               Work{"service, redirects", &MeasureRedirects},
                               Work{"service memory", &MeasureServiceMemory},
                               Work{"sizes of the programs", &MeasureSizes},
                               Work{"bytes of a refresh", &MeasureTraffic}};

// Measures one work in a folder of its own.
void Measure(const Interruption& interruption, int number, std::vector<Line>& lines) {
  const Work& work = kWorks.at(static_cast<std::size_t>(number - 1));
  const Report report = [&](Line line) {
    line.number = number;
    PrintLine(std::cout, line);
    lines.push_back(std::move(line));
  };
  try {
    const WorkFolder folder;
    const fs::path floors = fs::read_symlink("/proc/self/exe").parent_path();
    work.measure({.interruption = interruption,
                  .programs = floors.parent_path() / "bin",
                  .floors = floors,
                  .folder = folder.Path()},
                 report);
  } catch (const std::exception& failure) {
    report({.work = work.name, .failure = failure.what()});
  }
}

// Whether all works could be measured.
bool MeasureAll(const Options& options) {
  const Interruption interruption;
  std::vector<Line> lines;
  PrintHeading(std::cout);
  for (int number = 1; number <= static_cast<int>(kWorks.size()); ++number) {
    if (options.only.empty() || options.only.contains(number)) {
      Measure(interruption, number, lines);
    }
  }
  if (!options.json.empty()) {
    WriteJson(options.json, lines);
  }
  return std::ranges::all_of(lines, [](const Line& line) { return line.failure.empty(); });
}

}  // namespace

int main(int argc, char** argv) {
  const auto options =
      ReadOptions(std::vector<std::string>(argv + 1, argv + argc), static_cast<int>(kWorks.size()));
  if (!options) {
    std::cerr << "Usage: tallyo-bench-table [--json FILE] [--only N[,N...]]\n";
    return 2;
  }
  std::signal(SIGPIPE, SIG_IGN);
  try {
    return MeasureAll(*options) ? 0 : 1;
  } catch (const Interrupted&) {
    std::cerr << "Interrupted\n";
    return 130;
  } catch (const std::exception& failure) {
    std::cerr << "tallyo-bench-table: " << failure.what() << '\n';
    return 1;
  }
}
