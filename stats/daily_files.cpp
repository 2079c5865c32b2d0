#include "stats/daily_files.h"

#include <algorithm>
#include <optional>
#include <tuple>

#include "stats/month_days.h"
#include "text/decimal_text.h"
#include "text/integers.h"
#include "text/leading_number.h"
#include "text/lines.h"
#include "text/runtime_error.h"
#include "text/two_digits.h"

namespace tallyo {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::size_t kKeyLength = 4;
constexpr int kHours = 24;

// The part of a line from a position on; empty where the line is shorter.
std::string_view Part(std::string_view line, std::size_t from,
                      std::size_t length = std::string_view::npos) {
  return from < line.size() ? line.substr(from, length) : std::string_view();
}

}  // namespace

std::string WithHitsAdded(std::string_view content, std::string_view key, std::int16_t increment) {
  std::string result;
  result.reserve(content.size() + kKeyLength + 8);
  bool found = false;
  Lines lines(content);
  while (const std::optional<std::string_view> line = lines.Next()) {
    if (Part(*line, 0, kKeyLength) == key) {
      result += key;
      result += DecimalText(LeadingNumber(Part(*line, kKeyLength)) + increment);
      found = true;
    } else {
      result += *line;
    }
    result += kLineEnd;
  }
  if (!found) {
    result += key;
    result += std::to_string(increment);
    result += kLineEnd;
  }
  return result;
}

void DailyFiles::EnsureYearFolder() {
  const std::string year = YearText(clock_.Now().date);
  state_.YearFolder = year + "/";
  try {
    files_.MakeFolder(state_.DataFolder() / year);
  } catch (const RuntimeError&) {
    return;
  }
}

bool DailyFiles::WriteDailyCount(std::int16_t increment, std::string_view name) {
  try {
    const LocalTime now = clock_.Now();
    const std::string key = DayText(now.date) + TwoDigits(now.hour);
    const std::filesystem::path file = DailyFile(MonthName(now.date), name);
    files_.Replace(file, WithHitsAdded(EnsureDailyFile(file), key, increment),
                   state_.DataFolder() / "tmp");
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

void DailyFiles::LoadDailyFile(std::string_view month, std::string_view name) {
  try {
    DaysInMonth(month, days_);
    ClearGrid();
    const std::string shown = month.empty() ? MonthName(clock_.Now().date) : std::string(month);
    const std::string content = files_.Read(DailyFile(shown, name));
    Lines lines(content);
    while (const std::optional<std::string_view> line = lines.Next()) {
      if (!line->empty()) {
        ShowLine(*line);
      }
    }
  } catch (const RuntimeError&) {
    return;
  }
}

std::vector<HourHits> DailyFiles::ReadMonth(std::string_view month, std::string_view name) const {
  std::vector<HourHits> entries;
  try {
    const std::string content = files_.Read(DailyFile(month, name));
    Lines lines(content);
    while (const std::optional<std::string_view> line = lines.Next()) {
      const HourHits entry{.day = ToInt16(LeadingNumber(Part(*line, 0, 2))),
                           .hour = ToInt16(LeadingNumber(Part(*line, 2, 2))),
                           .hits = LeadingNumber(Part(*line, kKeyLength))};
      if (line->size() > kKeyLength && entry.day >= 1 && entry.day <= 31 && entry.hour >= 0 &&
          entry.hour < kHours) {
        entries.push_back(entry);
      }
    }
  } catch (const RuntimeError&) {
    return entries;
  }
  std::ranges::stable_sort(entries, [](const HourHits& one, const HourHits& other) {
    return std::tie(one.day, one.hour) < std::tie(other.day, other.hour);
  });
  return entries;
}

bool DailyFiles::HasFile(std::string_view month, std::string_view name) const {
  try {
    return files_.Exists(DailyFile(month, name));
  } catch (const RuntimeError&) {
    return false;
  }
}

std::filesystem::path DailyFiles::DailyFile(std::string_view month, std::string_view name) const {
  const std::string fileName = std::string(name) + "-" + std::string(month);
  if (!IsFileName(fileName)) {
    throw RuntimeError("no file name: " + fileName);
  }
  return state_.DataFolder() / state_.YearFolder / fileName;
}

// The content of the file as it is; a file that is not there yet begins empty.
std::string DailyFiles::EnsureDailyFile(const std::filesystem::path& file) const {
  return files_.Exists(file) ? files_.Read(file) : std::string();
}

void DailyFiles::ClearGrid() {
  for (int day = 1; day <= days_; ++day) {
    for (int row = 1; row <= kHours; ++row) {
      form_.ListView2.SetValue(row, day, "");
    }
  }
}

void DailyFiles::ShowLine(std::string_view line) {
  const std::int16_t day = ToInt16(LeadingNumber(Part(line, 0, 2)));
  const std::int16_t hour = ToInt16(LeadingNumber(Part(line, 2, 2)));
  const std::int16_t hits = ToInt16(LeadingNumber(Part(line, kKeyLength)));
  form_.ListView2.SetValue(hour + 1, day, std::to_string(hits));
}

}  // namespace tallyo
