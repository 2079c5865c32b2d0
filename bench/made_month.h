#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace tallyo::bench {

// A daily file with hits in every hour of 30 days.
inline std::string MadeMonth(int link) {
  const auto twoDigits = [](int number) {
    return std::string(number < 10 ? "0" : "") + std::to_string(number);
  };
  std::string content;
  for (int day = 1; day <= 30; ++day) {
    for (int hour = 0; hour < 24; ++hour) {
      const int hits = 1 + (link + 7 * day + 3 * hour) % 150;
      content += twoDigits(day) + twoDigits(hour) + std::to_string(hits) + "\r\n";
    }
  }
  return content;
}

// Where the made-up link has its daily file.
inline std::filesystem::path DailyFileOf(const std::filesystem::path& yearFolder, int link,
                                         const std::string& month) {
  return yearFolder / ("Manual " + std::to_string(link) + "-" + month);
}

// Writes these months of so many made-up links. Nothing is flushed.
inline void WriteMonths(const std::filesystem::path& yearFolder, int count,
                        const std::vector<std::string>& months) {
  std::filesystem::create_directories(yearFolder);
  for (int i = 1; i <= count; ++i) {
    const std::string content = MadeMonth(i);
    for (const std::string& month : months) {
      std::ofstream(DailyFileOf(yearFolder, i, month), std::ios::binary) << content;
    }
  }
}

}  // namespace tallyo::bench
