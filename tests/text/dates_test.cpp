#include "text/dates.h"

#include <gtest/gtest.h>

#include <string>

#include "text/runtime_error.h"

namespace tallyo {
namespace {

using std::chrono::day;
using std::chrono::month;
using std::chrono::year;

constexpr Date kBirthday{year{2026}, month{11}, day{7}};

TEST(Dates, AreWrittenInEnglish) {
  EXPECT_EQ(MonthName(kBirthday), "Nov");
  EXPECT_EQ(DayText(kBirthday), "07");
  EXPECT_EQ(YearText(kBirthday), "2026");
  EXPECT_EQ(MonthDayYear(kBirthday), "11-07-2026");
  EXPECT_EQ(LongDate(kBirthday), "Sat, Nov 07 2026");
  EXPECT_EQ(LongDate(Date{year{2026}, month{1}, day{1}}), "Thu, Jan 01 2026");
  EXPECT_EQ(LongDate(Date{year{2028}, month{2}, day{29}}), "Tue, Feb 29 2028");
}

TEST(Dates, ComeWithATimeOfTwentyFourHours) {
  LocalTime time;
  EXPECT_EQ(ClockText(time), "00:00:00");
  time.hour = 21;
  time.minute = 5;
  time.second = 59;
  EXPECT_EQ(ClockText(time), "21:05:59");
}

TEST(SlashDate, TakesDaysThatExist) {
  const struct {
    std::string text;
    Date date;
  } cases[] = {
      {"11/07/2026", kBirthday},
      {"11/7/2026", kBirthday},
      {"1/1/0001", {year{1}, month{1}, day{1}}},
      {"2/29/2028", {year{2028}, month{2}, day{29}}},
      {"12/31/9999", {year{9999}, month{12}, day{31}}},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(SlashDate(c.text), c.date) << c.text;
  }
}

TEST(SlashDate, FailsForEveryOtherText) {
  const std::string cases[] = {"",
                               "2/29/2026",
                               "2/29/2100",
                               "13/01/2026",
                               "0/1/2026",
                               "1/0/2026",
                               "4/31/2026",
                               "1/32/2026",
                               "1/1/26",
                               "01/15/2027 ",
                               " 01/15/2027",
                               "01-15-2027",
                               "1/1/02026",
                               "001/1/2026",
                               "1/001/2026",
                               "1/1/2026x",
                               "1//2026",
                               "/1/2026",
                               "1/1/",
                               "1/1",
                               "+1/1/2026",
                               "-1/1/2026",
                               "1/ 1/2026",
                               "1/1/2026/",
                               std::string("1/1/2026\0", 9)};
  for (const std::string& text : cases) {
    EXPECT_THROW(static_cast<void>(SlashDate(text)), RuntimeError) << text;
  }
}

TEST(DaysBetween, CountsOverMonthsAndLeapDays) {
  EXPECT_EQ(DaysBetween(kBirthday, kBirthday), 0);
  EXPECT_EQ(DaysBetween(SlashDate("2/28/2028"), SlashDate("3/1/2028")), 2);
  EXPECT_EQ(DaysBetween(SlashDate("1/1/2027"), SlashDate("12/31/2026")), -1);
}

}  // namespace
}  // namespace tallyo
