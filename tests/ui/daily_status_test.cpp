#include "ui/daily_status.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/test_program.h"

namespace tallyo {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;

constexpr int kJan = 0;
constexpr int kFeb = 1;
constexpr int kMar = 2;

class DailyStatusTest : public testing::Test {
 protected:
  void StartWithLinks() {
    program.SetRecord("01", "1,A,rA,pA");
    program.SetRecord("02", "1,B,rB,pB");
    program.WriteFile("Data/2026/A-Jan", "150912\r\n31005\r\n");
    program.WriteFile("Data/2026/A-Feb", "01073\r\n");
    program.WriteFile("Data/2026/B-Jan", "022234\r\n");
    program.Start();
  }
  void Open() { program.Form().mnuWindDaily.Click(); }
  const ReportList& Grid() { return program.Form().ListView2; }
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
  const std::string& Caption() { return program.Form().Label5[2].Caption(); }

  test::TestProgram program;
};

TEST_F(DailyStatusTest, TheGridHasTheDaysOfAMonthAndTheHoursOfADay) {
  program.Start();
  const auto& headings = Grid().Headings();
  ASSERT_EQ(headings.size(), 32U);
  EXPECT_EQ(headings[0].text, "Jan, 2026");
  EXPECT_EQ(headings[1].text, " 1");
  EXPECT_EQ(headings[31].text, " 31");
  EXPECT_THAT(headings, Each(Field(&ReportList::Heading::width, 600)));
  ASSERT_EQ(Grid().RowCount(), 24);
  EXPECT_EQ(Grid().RowText(1), "0");
  EXPECT_EQ(Grid().RowText(24), "23");
}

TEST_F(DailyStatusTest, OpensWithTheFirstLinkAndThisMonth) {
  StartWithLinks();
  Open();
  MainForm& form = program.Form();
  EXPECT_EQ(program.P().state.CurrentScreen, screen::kDailyStatus);
  EXPECT_TRUE(form.Combo2.Visible() && form.Combo3.Visible() && form.Label5[2].Visible());
  EXPECT_THAT(form.Combo2.Items(), ElementsAre("A", "B"));
  EXPECT_EQ(form.Combo2.Text(), "A");
  EXPECT_EQ(form.Combo3.Text(), "Jan");
  EXPECT_THAT(Cells(), ElementsAre("0h 31: 5", "9h 15: 12"));
  EXPECT_EQ(Grid().SelectedRow(), 13);
  EXPECT_EQ(Caption(), "Selected Time: 00 PM");
  Open();
  EXPECT_THAT(form.Combo2.Items(), ElementsAre("A", "B"));
}

TEST_F(DailyStatusTest, OpensWithoutLinks) {
  program.clock.Set(2026, 4, 15, 5, 0, 0);
  program.Start();
  Open();
  EXPECT_THAT(program.Form().Combo2.Items(), IsEmpty());
  EXPECT_EQ(program.Form().Combo2.Text(), "");
  EXPECT_EQ(program.Form().Combo3.Text(), "Apr");
  EXPECT_EQ(Grid().Headings().size(), 31U);
  EXPECT_TRUE(program.Form().Combo2.Visible());
  EXPECT_EQ(Grid().SelectedRow(), 6);
  EXPECT_EQ(Caption(), "Selected Time: 05 AM");
}

TEST_F(DailyStatusTest, HasAsManyDaysAsTheMonth) {
  StartWithLinks();
  Open();
  program.Form().Combo3.Choose(kFeb);
  ASSERT_EQ(Grid().Headings().size(), 31U);
  EXPECT_EQ(Grid().Headings()[0].text, "Feb, 2026");
  EXPECT_EQ(Grid().Headings()[30].text, " 30");
  EXPECT_THAT(Cells(), ElementsAre("7h 1: 3"));
  program.Form().Combo3.Choose(kMar);
  ASSERT_EQ(Grid().Headings().size(), 32U);
  EXPECT_EQ(Grid().Headings()[0].text, "Mar, 2026");
  EXPECT_EQ(Grid().Headings()[31], (ReportList::Heading{"31", 600}));
  EXPECT_THAT(Cells(), IsEmpty());  // nor is there what stood at January 31
  program.Form().Combo3.Choose(kJan);
  EXPECT_EQ(Grid().Headings().size(), 32U);
  EXPECT_THAT(Cells(), ElementsAre("0h 31: 5", "9h 15: 12"));
}

TEST_F(DailyStatusTest, TheMonthLeavesTheHourAlone) {
  StartWithLinks();
  Open();
  program.Form().ListView2.Select(3);
  program.Form().ListView2.ItemClick(3);
  program.clock.Advance(7200);
  program.Form().Combo3.Choose(kFeb);
  EXPECT_EQ(Grid().SelectedRow(), 3);
  EXPECT_EQ(Caption(), "Selected Time: 02 AM");
}

TEST_F(DailyStatusTest, AnotherLinkShowsItsMonthAndTheHourThatItIs) {
  StartWithLinks();
  Open();
  program.clock.Advance(7200);
  program.Form().Combo2.Choose(1);
  EXPECT_THAT(Cells(), ElementsAre("22h 2: 34"));
  EXPECT_EQ(Grid().SelectedRow(), 15);
  EXPECT_EQ(Caption(), "Selected Time: 02 PM");
  program.Form().Combo3.SetText("January");  // its first three characters name the month
  program.Form().Combo2.Choose(0);
  EXPECT_THAT(Cells(), ElementsAre("0h 31: 5", "9h 15: 12"));
}

TEST_F(DailyStatusTest, HeadsThisYearOverTheFilesOfTheYearOfStart) {
  program.WriteFile("Data/2027/A-Feb", "01079\r\n");
  StartWithLinks();
  program.clock.Set(2027, 2, 3, 0, 0, 0);
  Open();
  EXPECT_EQ(Grid().Headings()[0].text, "Feb, 2027");
  EXPECT_THAT(Cells(), ElementsAre("7h 1: 3"));
}

TEST_F(DailyStatusTest, NamesTheHourOfAClickedRow) {
  program.Start();
  const struct {
    int row;
    const char* hour;
  } cases[] = {{1, "00 AM"},  {2, "01 AM"},  {11, "10 AM"}, {12, "11 AM"},
               {13, "00 PM"}, {14, "01 PM"}, {24, "11 PM"}};
  for (const auto& c : cases) {
    program.Form().ListView2.ItemClick(c.row);
    EXPECT_EQ(Caption(), std::string("Selected Time: ") + c.hour) << c.row;
  }
}

}  // namespace
}  // namespace tallyo
