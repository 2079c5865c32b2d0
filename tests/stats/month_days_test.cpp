#include "stats/month_days.h"

#include <gtest/gtest.h>

namespace tallyo {
namespace {

std::int16_t DaysOf(const char* month) {
  std::int16_t days = 7;
  DaysInMonth(month, days);
  return days;
}

TEST(MonthDays, AreThirtyForFebruaryAndUnchangedForAnUnknownMonth) {
  for (const char* month : {"Feb", "Apr", "Jun", "Sep", "Nov"}) {
    EXPECT_EQ(DaysOf(month), 30) << month;
  }
  for (const char* month : {"Jan", "Mar", "May", "Jul", "Aug", "Oct", "Dec"}) {
    EXPECT_EQ(DaysOf(month), 31) << month;
  }
  for (const char* month : {"FEB", "jan", "February", "", "Feb ", "Ja"}) {
    EXPECT_EQ(DaysOf(month), 7) << month;
  }
}

}  // namespace
}  // namespace tallyo
