#pragma once

#include <array>
#include <ctime>
#include <string>

namespace tallyo::bench {

// The year and month in which the measuring begins, as the daily files are named.
struct Today {
  Today() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    year = std::to_string(local.tm_year + 1900);
    month = kMonths.at(static_cast<std::size_t>(local.tm_mon));
  }

  static constexpr std::array<const char*, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                          "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  std::string year;
  std::string month;
};

}  // namespace tallyo::bench
