#include "text/dates.h"

#include <gtest/gtest.h>

#include "text/runtime_error.h"
#include "text/two_digits.h"

namespace tallyo {
namespace {

TEST(Dates, AreWrittenInEnglish) {
  EXPECT_EQ(LongDate(SlashDate("11/07/2026")), "Sat, Nov 07 2026");
  EXPECT_EQ(LongDate(SlashDate("2/29/2028")), "Tue, Feb 29 2028");
  EXPECT_EQ(MonthDayYear(SlashDate("1/7/0001")), "01-07-0001");
  EXPECT_EQ(TwoDigits(100) + TwoDigits(-5), "100-05");
  EXPECT_EQ(DaysBetween(SlashDate("2/28/2028"), SlashDate("3/1/2028")), 2);
  EXPECT_EQ(DaysBetween(SlashDate("1/1/2027"), SlashDate("12/31/2026")), -1);
}

TEST(SlashDate, FailsForEveryTextThatIsNoDate) {
  for (const char* text : {"", "2/29/2100", "13/01/2026", "0/1/2026", "1/0/2026", "4/31/2026",
                           "1/1/26", "01/15/2027 ", " 01/15/2027", "01-15-2027", "1/1/02026",
                           "001/1/2026", "1//2026", "1/1", "+1/1/2026", "1/ 1/2026"}) {
    EXPECT_THROW(static_cast<void>(SlashDate(text)), RuntimeError) << text;
  }
}

}  // namespace
}  // namespace tallyo
