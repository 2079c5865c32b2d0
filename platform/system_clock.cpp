#include "platform/system_clock.h"

#include <chrono>
#include <ctime>

namespace tallyo {
namespace {

constexpr int kMinuteSeconds = 60;

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
  // Within a minute nothing but the seconds changes, whatever the time zone is.
  if (!readAt_ || moment < *readAt_ || last_.second + (moment - *readAt_) >= kMinuteSeconds) {
    last_ = ReadSecond(moment);
    readAt_ = moment;
  }
  const auto passed = static_cast<int>(moment - *readAt_);
  LocalTime time = last_;
  time.second += passed;
  time.secondsSinceMidnight += passed;
  time.secondsSinceMidnight += std::chrono::duration<double>(now - wholeSecond).count();
  return time;
}

}  // namespace tallyo
