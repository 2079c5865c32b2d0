#include "platform/system_clock.h"

#include <chrono>
#include <ctime>

namespace tallyo {
namespace {

LocalTime ReadSecond(std::time_t moment) {
  // localtime_r alone need not look at TZ.
  ::tzset();
  std::tm fields{};
  ::localtime_r(&moment, &fields);

  LocalTime time;
  time.date = Date{std::chrono::year{fields.tm_year + 1900},
                   std::chrono::month{static_cast<unsigned>(fields.tm_mon) + 1},
                   std::chrono::day{static_cast<unsigned>(fields.tm_mday)}};
  time.hour = fields.tm_hour;
  time.minute = fields.tm_min;
  time.second = fields.tm_sec;
  time.secondsSinceMidnight = (fields.tm_hour * 60 + fields.tm_min) * 60 + fields.tm_sec;
  return time;
}

}  // namespace

LocalTime SystemClock::Now() const {
  const auto now = std::chrono::system_clock::now();
  const auto wholeSecond = std::chrono::floor<std::chrono::seconds>(now);
  const std::time_t moment = std::chrono::system_clock::to_time_t(wholeSecond);
  if (moment != readAt_) {
    second_ = ReadSecond(moment);
    readAt_ = moment;
  }
  LocalTime time = second_;
  time.secondsSinceMidnight += std::chrono::duration<double>(now - wholeSecond).count();
  return time;
}

}  // namespace tallyo
