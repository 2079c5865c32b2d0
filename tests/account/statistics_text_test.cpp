#include "account/statistics_text.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/fake_clock.h"

namespace tallyo {
namespace {

// The list as rows of name, counter, change and path; the clock at the 16th of November.
class StatisticsTextTest : public testing::Test {
 protected:
  StatisticsTextTest() {
    clock.Set(2026, 11, 16, 14, 5, 9, 0.9);
    for (const char* heading : {"Name", "Counter", "Change", "Path"}) {
      list.AddHeading({heading, 100});
    }
  }
  void AddRow(const std::string& name, const std::string& counter = "") {
    list.AddRow(name);
    if (!counter.empty()) {
      list.SetValue(list.RowCount(), 1, counter);
    }
  }

  test::FakeClock clock;
  ReportList list;
};

TEST_F(StatisticsTextTest, HoldsAHeadingAndNothingForAnEmptyList) {
  EXPECT_EQ(StatisticsText(list, clock.Now()),
            " -- Tallyo v.1.1    11-16-2026  14:05:09 -- \r\n\r\n");
  clock.Set(2027, 1, 2, 0, 0, 0);
  EXPECT_EQ(StatisticsText(list, clock.Now()),
            " -- Tallyo v.1.1    01-02-2027  00:00:00 -- \r\n\r\n");
}

TEST_F(StatisticsTextTest, HoldsNameAndCounterOfEachRow) {
  AddRow("home page", "1,234");
  list.SetValue(1, 2, "5");
  list.SetValue(1, 3, "http://h/");
  AddRow("new");
  AddRow("", "7");
  EXPECT_EQ(StatisticsText(list, clock.Now()),
            " -- Tallyo v.1.1    11-16-2026  14:05:09 -- \r\n\r\n"
            "  home page:  1,234\r\n"
            "  new:  \r\n"
            "  :  7\r\n");
}

TEST_F(StatisticsTextTest, LeavesNamesAsTheyAre) {
  for (const std::string& name :
       {std::string("<b>bold</b> & 100%"), std::string(4000, 'n'),
        std::string("\xF0\x9F\x98\x80 \xE9"), std::string("a\r\n\x1b[31m\0b", 10)}) {
    list.ClearRows();
    AddRow(name, "1");
    EXPECT_TRUE(StatisticsText(list, clock.Now()).ends_with(" -- \r\n\r\n  " + name + ":  1\r\n"));
  }
}

}  // namespace
}  // namespace tallyo
