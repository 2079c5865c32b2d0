#include <map>
#include <string>
#include <utility>
#include <vector>

#include "stats/daily_files.h"
#include "tests/fuzz/findings.h"
#include "tests/fuzz/input_parts.h"
#include "tests/fuzz/memory_machine.h"
#include "tests/fuzz/plain_text.h"

namespace tallyo::fuzz {
namespace {

constexpr int kDays = 31;
constexpr int kHours = 24;
constexpr std::size_t kCells = std::size_t{kHours} * kDays;
constexpr const char* kOld = "old";  // in every cell before a month is read

struct Entry {
  std::optional<long> day;
  std::optional<long> hour;
  double hits = 0;

  explicit Entry(const std::string& line)
      : day(PlainInt16(PlainNumber(PlainMid(line, 1, 2)))),
        hour(PlainInt16(PlainNumber(PlainMid(line, 3, 2)))),
        hits(PlainNumber(PlainMid(line, 5))) {}

  [[nodiscard]] bool HasPlace() const {
    return day && hour && *day >= 1 && *day <= kDays && *hour >= 0 && *hour < kHours;
  }
};

std::size_t PlainDays(const std::string& month) {
  for (const char* name : {"Feb", "Apr", "Jun", "Sep", "Nov"}) {
    if (month == name) return 30;
  }
  for (const char* name : {"Jan", "Mar", "May", "Jul", "Aug", "Oct", "Dec"}) {
    if (month == name) return 31;
  }
  return 0;
}

// The cells of a month, hour by hour and in it day by day.
void NoteMonth(Findings& plain, const std::string& month, const std::vector<std::string>& lines) {
  std::vector<std::string> cells(kCells, kOld);
  for (std::size_t cell = 0; cell < kCells; ++cell) {
    if (cell % kDays < PlainDays(month)) cells[cell] = "";
  }
  for (const std::string& line : lines) {
    if (line.empty()) continue;
    const Entry entry(line);
    const std::optional<long> hits = PlainInt16(entry.hits);
    if (!entry.HasPlace() || !hits) break;
    cells[static_cast<std::size_t>(*entry.hour * kDays + *entry.day - 1)] = std::to_string(*hits);
  }
  for (const std::string& cell : cells) {
    plain.emplace_back("cell", cell);
  }
}

void NoteEntries(Findings& plain, const std::vector<std::string>& lines) {
  std::multimap<std::pair<long, long>, double> entries;
  for (const std::string& line : lines) {
    const Entry entry(line);
    if (line.size() > 4 && entry.HasPlace()) {
      entries.insert({{*entry.day, *entry.hour}, entry.hits});
    }
  }
  for (const auto& [time, hits] : entries) {
    plain.emplace_back(std::to_string(time.first) + " " + std::to_string(time.second),
                       PlainDecimal(hits, 17).value());
  }
}

// The content of a daily file with more hits in the hour of the key, line by line.
std::string PlainDailyFile(std::string_view content, const std::string& key, long increment) {
  std::string result;
  bool matched = false;
  for (const std::string& line : PlainLines(content)) {
    if (PlainMid(line, 1, 4) == key) {
      const double hits = PlainNumber(PlainMid(line, 5)) + static_cast<double>(increment);
      result += key + PlainDecimal(hits).value() + "\r\n";
      matched = true;
    } else {
      result += line + "\r\n";
    }
  }
  return matched ? result : result + key + std::to_string(increment) + "\r\n";
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

  MainForm form;
  SharedState state;
  MemoryFiles files;
  test::FakeClock clock;
  DailyFiles daily{form, state, files, clock};
};

void NoteMonth(Findings& program, const MainForm& form) {
  for (int row = 1; row <= kHours; ++row) {
    for (int day = 1; day <= kDays; ++day) {
      program.emplace_back("cell", form.ListView2.Value(row, day));
    }
  }
}

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
  NoteMonth(program, world.form);
  NoteMonth(plain, month, lines);
  for (const tallyo::HourHits& entry : world.daily.ReadMonth(shown, "a")) {
    program.emplace_back(std::to_string(entry.day) + " " + std::to_string(entry.hour),
                         PlainDecimal(entry.hits, 17).value());
  }
  NoteEntries(plain, lines);

  std::string& january = world.files.contents["/a/Data/2026/a-Jan"];
  january = content;
  program.emplace_back("written", world.daily.WriteDailyCount(increment, "a") ? "yes" : "no");
  program.emplace_back("file", january);
  plain.emplace_back("written", "yes");
  plain.emplace_back("file", PlainDailyFile(content, "1512", increment));
  RequireSame(program, plain);
  return 0;
}
