#include "ui/daily_status.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/monitored_program.h"
#include "tests/support/table.h"

namespace tallyo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DailyStatusTest : public testing::Test {
 protected:
  DailyStatusTest() {
    program.GiveLinks({"A", "B"});
    program.WriteFile("Data/2026/A-Jan", "150912\r\n31005\r\n");
    program.WriteFile("Data/2026/A-Feb", "01073\r\n");
    program.WriteFile("Data/2026/B-Jan", "022234\r\n");
    program.Start();
  }
  void Open() { program.Form().mnuWindDaily.Click(); }
  ReportList& Grid() { return program.Form().ListView2; }
  // Hour, day and text of every cell that shows something.
  [[nodiscard]] std::vector<std::string> Cells() {
    std::vector<std::string> cells;
    for (int row = 1; row <= Grid().RowCount(); ++row) {
      for (int day = 1; day < static_cast<int>(Grid().Headings().size()); ++day) {
        if (const std::string& text = Grid().Value(row, day); !text.empty()) {
          cells.push_back(Grid().RowText(row) + "h " + std::to_string(day) + ": " + text);
        }
      }
    }
    return cells;
  }
  // The selected row and what names an hour.
  std::string Selected() {
    return std::to_string(Grid().SelectedRow()) + ", " + program.Form().Label5[2].Caption();
  }

  test::MonitoredProgram program;
};

TEST_F(DailyStatusTest, OpensWithTheFirstLinkAndThisMonth) {
  for (int opening = 0; opening < 2; ++opening) {
    Open();
    MainForm& form = program.Form();
    EXPECT_EQ(program.P().state.CurrentScreen, screen::kDailyStatus);
    EXPECT_TRUE(form.Combo2.Visible() && form.Combo3.Visible() && form.Label5[2].Visible());
    EXPECT_THAT(form.Combo2.Items(), ElementsAre("A", "B"));
    EXPECT_EQ(form.Combo2.Text() + form.Combo3.Text(), "AJan");
    EXPECT_THAT(Cells(), ElementsAre("0h 31: 5", "9h 15: 12"));
    EXPECT_EQ(Selected(), "13, Selected Time: 00 PM");
  }
  program.Store().DeleteKey(Hive::LocalMachine, names::MonitorFilesKey);
  program.clock.Set(2026, 4, 15, 5, 0, 0);
  program.Start();
  Open();
  EXPECT_EQ(program.Form().Combo2.Text() + program.Form().Combo3.Text(), "Apr");
  EXPECT_EQ(Selected(), "6, Selected Time: 05 AM");
}

TEST_F(DailyStatusTest, HasAsManyDaysAsTheMonth) {
  ASSERT_EQ(Grid().RowCount(), 24);
  EXPECT_EQ(Grid().Headings()[1].text + Grid().Headings()[31].text, " 1 31");
  Open();
  const char* const months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  std::string days;
  for (int month = 0; month < 12; ++month) {
    program.Form().Combo3.Choose(month);
    EXPECT_EQ(Grid().Headings()[0].text, months[month] + std::string(", 2026"));
    days += " " + std::to_string(Grid().Headings().size() - 1);
    if (month == 1) {
      EXPECT_THAT(Cells(), ElementsAre("7h 1: 3"));
    } else if (month == 2) {
      EXPECT_EQ(Grid().Headings()[31], (ReportList::Heading{"31", 600}));
      EXPECT_THAT(Cells(), IsEmpty());  // nor is there what stood at January 31
    }
  }
  EXPECT_EQ(days, " 31 30 31 30 31 30 31 31 30 31 30 31");
}

TEST_F(DailyStatusTest, AMonthLeavesTheHourAloneAndALinkShowsTheHourThatItIs) {
  Open();
  Grid().Select(3);
  Grid().ItemClick(3);
  program.clock.Advance(7200);
  program.Form().Combo3.Choose(2);
  EXPECT_EQ(Selected(), "3, Selected Time: 02 AM");
  program.Form().Combo3.SetText("January");  // its first three characters name the month
  program.Form().Combo2.Choose(1);
  EXPECT_THAT(Cells(), ElementsAre("22h 2: 34"));
  EXPECT_EQ(Selected(), "15, Selected Time: 02 PM");
  for (const auto& [row, hour] : test::Table<int, const char*>{{12, "11 AM"}, {13, "00 PM"}}) {
    Grid().ItemClick(row);
    EXPECT_EQ(program.Form().Label5[2].Caption(), std::string("Selected Time: ") + hour);
  }
}

TEST_F(DailyStatusTest, HeadsThisYearOverTheFilesOfTheYearOfStart) {
  program.WriteFile("Data/2027/A-Feb", "01079\r\n");
  program.clock.Set(2027, 2, 3, 0, 0, 0);
  Open();
  EXPECT_EQ(Grid().Headings()[0].text, "Feb, 2027");
  EXPECT_THAT(Cells(), ElementsAre("7h 1: 3"));
}

}  // namespace
}  // namespace tallyo
