#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <string>

#include "platform/system_clock.h"
#include "tests/support/fake_clock.h"

namespace tallyo {
namespace {

// Sets TZ while it lives.
class TimeZone {
 public:
  explicit TimeZone(const char* zone) {
    if (const char* before = std::getenv("TZ")) {
      before_ = before;
    }
    ::setenv("TZ", zone, 1);
  }
  ~TimeZone() { before_.empty() ? ::unsetenv("TZ") : ::setenv("TZ", before_.c_str(), 1); }
  TimeZone(const TimeZone&) = delete;
  TimeZone& operator=(const TimeZone&) = delete;

 private:
  std::string before_;
};

double SecondsOf(const LocalTime& time) {
  const std::chrono::sys_days day{time.date};
  return static_cast<double>(day.time_since_epoch().count()) * 86400 + time.secondsSinceMidnight;
}

double UtcSeconds() {
  return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

TEST(SystemClock, ReadsTheLocalTimeOfTheZoneThatIsSet) {
  const SystemClock clock;
  const struct {
    const char* zone;
    double aheadSeconds;
  } cases[] = {{"UTC0", 0}, {"AAA-14", 14 * 3600}, {"BBB12", -12 * 3600}, {"CCC-5:45", 20700}};
  for (const auto& c : cases) {
    const TimeZone zone(c.zone);
    const double before = UtcSeconds();
    const double read = SecondsOf(clock.Now()) - c.aheadSeconds;
    EXPECT_GE(read, before - 1e-3) << c.zone;
    EXPECT_LE(read, UtcSeconds() + 1e-3) << c.zone;
  }
}

TEST(SystemClock, ReadsOneMoment) {
  const SystemClock clock;
  for (int i = 0; i < 1000; ++i) {
    const LocalTime time = clock.Now();
    EXPECT_EQ((time.hour * 60 + time.minute) * 60 + time.second,
              std::floor(time.secondsSinceMidnight));
    EXPECT_TRUE(time.date.ok());
  }
}

TEST(FakeClock, CrossesMidnightAndYears) {
  test::FakeClock clock;
  clock.Set(2026, 12, 31, 23, 59, 59, .5);
  EXPECT_EQ(clock.Now().secondsSinceMidnight, 86399.5);
  clock.Advance(.75);
  const LocalTime next = clock.Now();
  EXPECT_EQ(MonthDayYear(next.date) + " " + ClockText(next), "01-01-2027 00:00:00");
  EXPECT_EQ(next.secondsSinceMidnight, .25);
  clock.Advance(-86400);
  EXPECT_EQ(MonthDayYear(clock.Now().date), "12-31-2026");
}

}  // namespace
}  // namespace tallyo
