#include <stdexcept>

#include "bench/made_month.h"
#include "bench/table/file_text.h"
#include "bench/table/measure.h"
#include "bench/table/rounds_in_turn.h"
#include "bench/table/today.h"
#include "bench/table/worker.h"

namespace tallyo::bench {
namespace {

constexpr int kLinks = 1'000;

// The milliseconds from the start of a command to its end. It must print exactly what is expected.
double WholeRun(const Place& place, const Command& command, const std::string& expected) {
  const auto begin = std::chrono::steady_clock::now();
  const std::string printed = RunToEnd(place, command);
  const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - begin;
  if (printed != expected) {
    throw std::runtime_error(command.words.front() + " did not print what was expected");
  }
  return time.count();
}

void MeasureCommand(const Place& place, const Report& report, const std::string& name,
                    const std::vector<std::string>& words, const std::filesystem::path& file) {
  const std::filesystem::path appDir = place.folder / "app";
  Command ours = {.words = {place.programs / "tallyo-cli", "--app-dir", appDir}};
  ours.words.insert(ours.words.end(), words.begin(), words.end());
  const std::string expected = RunToEnd(place, ours);
  WriteText(place.folder / "expected", expected);
  const Command floor = {.words = {place.floors / "console-floor", appDir / "settings.db", file,
                                   place.folder / "expected"}};
  const Pair pair = InTurn([&] { return WholeRun(place, ours, expected); },
                           [&] { return WholeRun(place, floor, expected); });
  report({.work = "tallyo-cli " + name + ", 1,000 links (ms)",
          .ours = pair.ours,
          .floor = pair.floor,
          .goal = 2});
}

}  // namespace

void MeasureConsole(const Place& place, const Report& report) {
  const Today today;
  const std::filesystem::path appDir = place.folder / "app";
  const std::filesystem::path year = appDir / "Data" / today.year;
  RunToEnd(place, {.words = {place.floors / "make-links", std::to_string(kLinks), appDir}});
  WriteMonths(year, kLinks, {Today::kMonths.begin(), Today::kMonths.end()});
  MeasureCommand(place, report, "status", {"status"}, appDir / "Data" / "LastRead.dat");
  MeasureCommand(place, report, "daily", {"daily", "Manual 1"}, DailyFileOf(year, 1, today.month));
}

}  // namespace tallyo::bench
