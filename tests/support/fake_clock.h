#pragma once

#include <chrono>
#include <cmath>

#include "platform/clock.h"

namespace tallyo::test {

// Stands still until a test moves it. Starts at 2026-01-15 12:00:00.
class FakeClock final : public Clock {
 public:
  FakeClock() { Set(2026, 1, 15, 12, 0, 0); }

  void Set(int year, unsigned month, unsigned day, int hour, int minute, int second,
           double fraction = 0) {
    const Date date{std::chrono::year{year}, std::chrono::month{month}, std::chrono::day{day}};
    now_ = std::chrono::local_days{date} + std::chrono::hours{hour} + std::chrono::minutes{minute} +
           std::chrono::seconds{second} + Nanoseconds(fraction);
  }

  // Negative seconds turn it back.
  void Advance(double seconds) { now_ += Nanoseconds(seconds); }

  [[nodiscard]] LocalTime Now() const override {
    const auto midnight = std::chrono::floor<std::chrono::days>(now_);
    const auto sinceMidnight = now_ - midnight;
    const std::chrono::hh_mm_ss fields{std::chrono::floor<std::chrono::seconds>(sinceMidnight)};
    LocalTime time;
    time.date = Date{midnight};
    time.hour = static_cast<int>(fields.hours().count());
    time.minute = static_cast<int>(fields.minutes().count());
    time.second = static_cast<int>(fields.seconds().count());
    time.secondsSinceMidnight = static_cast<double>(sinceMidnight.count()) / 1e9;
    return time;
  }

 private:
  static std::chrono::nanoseconds Nanoseconds(double seconds) {
    return std::chrono::nanoseconds{std::llround(seconds * 1e9)};
  }

  std::chrono::local_time<std::chrono::nanoseconds> now_;
};

}  // namespace tallyo::test
