#include "stats/daily_files.h"

#include <algorithm>
#include <map>
#include <optional>
#include <tuple>
#include <unordered_map>

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

// The hits of the hour's first line; 0 without one.
double HitsAt(std::string_view content, std::string_view key) {
  Lines lines(content);
  while (const std::optional<std::string_view> line = lines.Next()) {
    if (Part(*line, 0, kKeyLength) == key) {
      return LeadingNumber(Part(*line, kKeyLength));
    }
  }
  return 0;
}

}  // namespace

std::string WithHitsAdded(std::string_view content, std::string_view key, double increment) {
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
    result += DecimalText(increment);
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
  return WriteDailyCounts({{CountNow(increment, name)}}).front();
}

DailyCount DailyFiles::CountNow(std::int16_t increment, std::string_view name) const {
  return {.name = std::string(name), .increment = increment, .at = clock_.Now()};
}

// A link that is counted twice has one file to write.
std::vector<bool> DailyFiles::WriteDailyCounts(std::span<const DailyCount> counts) {
  std::vector<Files::Replacement> files;
  std::unordered_map<std::string, std::size_t> known;
  std::vector<std::optional<std::size_t>> fileOf(counts.size());
  for (std::size_t i = 0; i < counts.size(); ++i) {
    try {
      const DailyCount& count = counts[i];
      const std::filesystem::path file = DailyFile(MonthName(count.at.date), count.name);
      if (!known.contains(file.native())) {
        files.push_back({file, EnsureDailyFile(file), WorkFile(files.size())});
        known[file.native()] = files.size() - 1;
      }
      std::string& content = files[known[file.native()]].content;
      content = WithHitsAdded(content, DayText(count.at.date) + TwoDigits(count.at.hour),
                              count.increment);
      fileOf[i] = known[file.native()];
    } catch (const RuntimeError&) {
      continue;  // it stays out
    }
  }
  const std::vector<bool> replaced = files_.ReplaceAll(files);
  std::vector<bool> written(counts.size());
  for (std::size_t i = 0; i < counts.size(); ++i) {
    written[i] = fileOf[i] && replaced[*fileOf[i]];
  }
  return written;
}

void DailyFiles::WriteInTurn(std::span<const DailyCount> counts) {
  while (!counts.empty()) {
    const std::size_t together = std::min(counts.size(), kMostTogether);
    WriteDailyCounts(counts.first(together));
    counts = counts.subspan(together);
  }
}

std::vector<HourTotal> DailyFiles::TotalsWith(std::span<const DailyCount> counts) const {
  std::map<std::pair<std::string, std::string>, double> totals;  // by file and key
  for (const DailyCount& count : counts) {
    try {
      const std::filesystem::path file = DailyFile(MonthName(count.at.date), count.name);
      const std::string key = DayText(count.at.date) + TwoDigits(count.at.hour);
      const auto [total, isNew] =
          totals.try_emplace({state_.YearFolder + file.filename().string(), key}, 0);
      if (isNew) {
        total->second = HitsAt(EnsureDailyFile(file), key);
      }
      total->second += count.increment;
    } catch (const RuntimeError&) {
      continue;
    }
  }
  std::vector<HourTotal> all;
  all.reserve(totals.size());
  for (const auto& [hour, hits] : totals) {
    all.push_back({.file = hour.first, .key = hour.second, .hits = hits});
  }
  return all;
}

void DailyFiles::BringTo(const HourTotal& total) {
  try {
    const std::filesystem::path file = state_.DataFolder() / total.file;
    const std::string content = EnsureDailyFile(file);
    const double lacking = total.hits - HitsAt(content, total.key);
    if (lacking > 0) {
      files_.Replace(file, WithHitsAdded(content, total.key, lacking), WorkFile(0));
    }
  } catch (const RuntimeError&) {
    return;
  }
}

void DailyFiles::ClearWorkFiles() {
  for (std::size_t number = 0; number < kMostTogether; ++number) {
    try {
      if (files_.Exists(WorkFile(number))) {
        files_.Delete(WorkFile(number));
      }
    } catch (const RuntimeError&) {
      continue;
    }
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

std::filesystem::path DailyFiles::WorkFile(std::size_t number) const {
  return state_.DataFolder() / (number == 0 ? "tmp" : "tmp-" + std::to_string(number));
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
