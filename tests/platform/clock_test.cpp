#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <cstdlib>

#include "platform/system_clock.h"
#include "tests/support/table.h"

namespace tallyo {
namespace {

double UtcSeconds() {
  return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

TEST(SystemClock, ReadsOneMomentOfTheLocalTimeOfTheZoneThatIsSet) {
  const char* const before = std::getenv("TZ");
  const std::string zoneBefore = before != nullptr ? before : "";
  const test::Table<const char*, double> cases = {
      {"UTC0", 0}, {"AAA-14", 14 * 3600}, {"BBB12", -12 * 3600}, {"CCC-5:45", 20700}};
  for (const auto& [zone, aheadSeconds] : cases) {
    ::setenv("TZ", zone, 1);
    const double earliest = UtcSeconds() - 1e-3;
    const LocalTime time = SystemClock().Now();
    const std::chrono::sys_days day{time.date};
    const double read = static_cast<double>(day.time_since_epoch().count()) * 86400 +
                        time.secondsSinceMidnight - aheadSeconds;
    EXPECT_GE(read, earliest) << zone;
    EXPECT_LE(read, UtcSeconds() + 1e-3) << zone;
    EXPECT_EQ((time.hour * 60 + time.minute) * 60 + time.second,
              std::floor(time.secondsSinceMidnight));
  }
  before != nullptr ? ::setenv("TZ", zoneBefore.c_str(), 1) : ::unsetenv("TZ");
}

}  // namespace
}  // namespace tallyo
