#include <map>
#include <string>
#include <utility>
#include <vector>

#include "stats/daily_files.h"
#include "tests/fuzz/findings.h"
#include "tests/fuzz/input_parts.h"
#include "tests/fuzz/memory_machine.h"
#include "tests/fuzz/plain_daily.h"
#include "tests/fuzz/plain_text.h"

namespace tallyo::fuzz {
namespace {

constexpr int kDays = 31;
constexpr int kHours = 24;
constexpr std::size_t kCells = std::size_t{kHours} * kDays;
constexpr const char* kOld = "old";  // in every cell before a month is read

// The cells of a month, hour by hour and in it day by day.
using Grid = std::vector<std::string>;

std::size_t CellOf(long row, long day) {
  return static_cast<std::size_t>((row - 1) * kDays + day - 1);
}

int PlainDays(const std::string& month) {
  for (const char* name : {"Feb", "Apr", "Jun", "Sep", "Nov"}) {
    if (month == name) return 30;
  }
  for (const char* name : {"Jan", "Mar", "May", "Jul", "Aug", "Oct", "Dec"}) {
    if (month == name) return 31;
  }
  return 0;
}

Grid PlainMonth(const std::string& month, const std::vector<std::string>& lines) {
  Grid grid(kCells, kOld);
  for (std::size_t cell = 0; cell < kCells; ++cell) {
    grid[cell] = static_cast<int>(cell % kDays) < PlainDays(month) ? "" : kOld;
  }
  for (const std::string& line : lines) {
    if (line.empty()) {
      continue;
    }
    const std::optional<long> day = PlainInt16(PlainNumber(PlainMid(line, 1, 2)));
    const std::optional<long> hour = PlainInt16(PlainNumber(PlainMid(line, 3, 2)));
    const std::optional<long> hits = PlainInt16(PlainNumber(PlainMid(line, 5)));
    if (!day || !hour || !hits || *day < 1 || *day > kDays || *hour < 0 || *hour >= kHours) {
      break;
    }
    grid[CellOf(*hour + 1, *day)] = std::to_string(*hits);
  }
  return grid;
}

void NoteEntries(Findings& plain, const std::vector<std::string>& lines) {
  std::map<std::pair<long, long>, std::vector<double>> entries;
  for (const std::string& line : lines) {
    const long day = PlainInt16(PlainNumber(PlainMid(line, 1, 2))).value_or(0);
    const long hour = PlainInt16(PlainNumber(PlainMid(line, 3, 2))).value_or(-1);
    if (line.size() > 4 && day >= 1 && day <= kDays && hour >= 0 && hour < kHours) {
      entries[{day, hour}].push_back(PlainNumber(PlainMid(line, 5)));
    }
  }
  for (const auto& [time, all] : entries) {
    for (const double hits : all) {
      plain.Note(std::to_string(time.first) + " " + std::to_string(time.second), hits);
    }
  }
}

void NoteGrid(Findings& findings, const Grid& grid) {
  std::string old;
  for (std::size_t cell = 0; cell < grid.size(); ++cell) {
    old += grid[cell] == kOld ? 'o' : '.';
    if (!grid[cell].empty() && grid[cell] != kOld) {
      findings.Note("cell " + std::to_string(cell), grid[cell]);
    }
  }
  findings.Note("old", old);
}

// A grid as the window has it, and the files of one link in memory.
struct Month {
  Month() {
    for (int heading = 0; heading <= kDays; ++heading) {
      form.ListView2.AddHeading({.text = "", .width = 0});
    }
    for (int row = 1; row <= kHours; ++row) {
      form.ListView2.AddRow("");
      for (int day = 1; day <= kDays; ++day) {
        form.ListView2.SetValue(row, day, kOld);
      }
    }
    state.AppDir = "/a";
    state.YearFolder = "2026/";
  }

  [[nodiscard]] Grid Shown() const {
    Grid grid;
    for (int row = 1; row <= kHours; ++row) {
      for (int day = 1; day <= kDays; ++day) {
        grid.push_back(form.ListView2.Value(row, day));
      }
    }
    return grid;
  }

  MainForm form;
  SharedState state;
  MemoryFiles files;
  test::FakeClock clock;
  DailyFiles daily{form, state, files, clock};
};

}  // namespace
}  // namespace tallyo::fuzz

// A number of hits to add on the 15th of January at 12, a month, and the file of that month.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  using namespace tallyo::fuzz;
  InputParts parts(data, size);
  const auto increment =
      static_cast<std::int16_t>(PlainInt16(PlainNumber(parts.Next())).value_or(1));
  const std::string month = PlainMid(parts.Next(), 1, 3);
  const std::string content = parts.Rest();
  const bool readable = PlainIsFileName("a-" + month);
  const std::vector<std::string> lines =
      readable ? PlainLines(content) : std::vector<std::string>();

  Month world;
  const std::string shown = month.empty() ? "Jan" : month;
  if (readable) {
    world.files.contents["/a/Data/2026/a-" + shown] = content;
  }
  Findings program;
  Findings plain;
  world.daily.LoadDailyFile(month, "a");
  NoteGrid(program, world.Shown());
  NoteGrid(plain, PlainMonth(month, lines));
  for (const tallyo::HourHits& entry : world.daily.ReadMonth(shown, "a")) {
    program.Note(std::to_string(entry.day) + " " + std::to_string(entry.hour), entry.hits);
  }
  NoteEntries(plain, lines);

  std::string& january = world.files.contents["/a/Data/2026/a-Jan"];
  january = content;
  program.Count("written", world.daily.WriteDailyCount(increment, "a") ? 1 : 0);
  program.Note("file", january);
  plain.Count("written", 1);
  plain.Note("file", PlainDailyFile(content, "1512", increment));
  RequireSame(program, plain);
  return 0;
}
