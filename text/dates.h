#pragma once

#include <array>
#include <chrono>
#include <string>
#include <string_view>

namespace tallyo {

using Date = std::chrono::year_month_day;

// One reading of the local clock.
struct LocalTime {
  Date date{};
  int hour = 0;                     // 0 to 23
  int minute = 0;                   // 0 to 59
  int second = 0;                   // 0 to 60
  double secondsSinceMidnight = 0;  // with its fraction
};

// "Jan" to "Dec".
inline constexpr std::array<std::string_view, 12> kMonthNames = {
    "Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

[[nodiscard]] std::string MonthName(const Date& date);       // Nov
[[nodiscard]] std::string DayText(const Date& date);         // 07
[[nodiscard]] std::string YearText(const Date& date);        // 2026
[[nodiscard]] std::string MonthDayYear(const Date& date);    // 11-07-2026
[[nodiscard]] std::string LongDate(const Date& date);        // Sat, Nov 07 2026
[[nodiscard]] std::string ClockText(const LocalTime& time);  // 09:05:00

// The date of a text "month/day/year": one or two digits for month and day, four for the year,
// nothing around them, a day that exists. Throws RuntimeError for any other text.
[[nodiscard]] Date SlashDate(std::string_view text);

// Whole days from one date to another; negative where `to` is the earlier one.
[[nodiscard]] int DaysBetween(const Date& from, const Date& to);

}  // namespace tallyo
