#include "text/dates.h"

#include <charconv>

#include "text/runtime_error.h"
#include "text/two_digits.h"

namespace tallyo {
namespace {

constexpr std::array<std::string_view, 7> kWeekdayNames = {"Sun", "Mon", "Tue", "Wed",
                                                           "Thu", "Fri", "Sat"};

int Number(unsigned value) { return static_cast<int>(value); }

// Takes a number of minDigits to maxDigits digits off the front of the text; -1 where there is
// none.
int TakeDigits(std::string_view& text, std::size_t minDigits, std::size_t maxDigits) {
  std::size_t digits = 0;
  while (digits < text.size() && text[digits] >= '0' && text[digits] <= '9') {
    ++digits;
  }
  if (digits < minDigits || digits > maxDigits) {
    return -1;
  }
  int value = -1;
  std::from_chars(text.data(), text.data() + digits, value);
  text.remove_prefix(digits);
  return value;
}

bool TakeSlash(std::string_view& text) {
  if (!text.starts_with('/')) {
    return false;
  }
  text.remove_prefix(1);
  return true;
}

}  // namespace

std::string MonthName(const Date& date) {
  return std::string(kMonthNames.at(static_cast<unsigned>(date.month()) - 1));
}

std::string DayText(const Date& date) {
  return TwoDigits(Number(static_cast<unsigned>(date.day())));
}

std::string YearText(const Date& date) {
  std::string text = std::to_string(static_cast<int>(date.year()));
  return text.size() < 4 ? std::string(4 - text.size(), '0') + text : text;
}

std::string MonthDayYear(const Date& date) {
  return TwoDigits(Number(static_cast<unsigned>(date.month()))) + "-" + DayText(date) + "-" +
         YearText(date);
}

std::string LongDate(const Date& date) {
  const std::chrono::weekday weekday{std::chrono::sys_days{date}};
  return std::string(kWeekdayNames.at(weekday.c_encoding())) + ", " + MonthName(date) + " " +
         DayText(date) + " " + YearText(date);
}

std::string ClockText(const LocalTime& time) {
  return TwoDigits(time.hour) + ":" + TwoDigits(time.minute) + ":" + TwoDigits(time.second);
}

Date SlashDate(std::string_view text) {
  std::string_view rest = text;
  const int month = TakeDigits(rest, 1, 2);
  const bool firstSlash = TakeSlash(rest);
  const int day = TakeDigits(rest, 1, 2);
  const bool secondSlash = TakeSlash(rest);
  const int year = TakeDigits(rest, 4, 4);
  if (month > 0 && day > 0 && year >= 0 && firstSlash && secondSlash && rest.empty()) {
    const Date date{std::chrono::year{year}, std::chrono::month{static_cast<unsigned>(month)},
                    std::chrono::day{static_cast<unsigned>(day)}};
    if (date.ok()) {
      return date;
    }
  }
  throw RuntimeError("not a date: " + std::string(text.substr(0, 40)));
}

int DaysBetween(const Date& from, const Date& to) {
  return static_cast<int>((std::chrono::sys_days{to} - std::chrono::sys_days{from}).count());
}

}  // namespace tallyo
