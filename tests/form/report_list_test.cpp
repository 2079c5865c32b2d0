#include "form/report_list.h"

#include <gtest/gtest.h>

#include <random>

#include "text/runtime_error.h"

namespace tallyo {
namespace {

class ReportListTest : public testing::Test {
 protected:
  ReportListTest() {
    list.AddHeading({"name", 600});
    list.AddHeading({"value", 600});
    list.AddRow("a");
    list.AddRow("b");
    list.SetValue(2, 1, "of b");
  }

  ReportList list;
};

TEST_F(ReportListTest, RefusesRowsAndColumnsThatAreNotThere) {
  const std::function<void()> cases[] = {
      [this] { list.SetRowText(0, "x"); },  [this] { list.SetRowText(3, "x"); },
      [this] { list.SetValue(1, 0, "x"); }, [this] { list.SetValue(1, 2, "x"); },
      [this] { list.InsertRow(4, "x"); },   [this] { list.InsertRow(0, "x"); },
      [this] { list.RemoveRow(3); },        [this] { list.Select(3); },
      [this] { list.ItemClick(3); },        [this] { list.SetHeading(0, "x"); },
      [this] { list.SetHeading(3, "x"); }};
  for (const auto& act : cases) {
    EXPECT_THROW(act(), RuntimeError) << &act - cases;
  }
  EXPECT_EQ(list.RowCount(), 2);
}

TEST_F(ReportListTest, ValuesAndTheSelectionGoWithTheirRow) {
  list.InsertRow(1, "new");
  EXPECT_EQ(list.Value(3, 1), "of b");
  list.Select(3);
  list.RemoveRow(2);
  EXPECT_EQ(list.RowText(2) + list.Value(2, 1) + list.Value(1, 1), "bof b");
  EXPECT_EQ(list.SelectedRow(), 2);
  list.RemoveRow(2);
  EXPECT_EQ(list.SelectedRow(), 0);
}

TEST_F(ReportListTest, NamesTheRowsThatAScanFindsAfterAnyChange) {
  std::mt19937 random(20260115);  // NOLINT: the same rows in every run
  const auto upTo = [&](int last) { return std::uniform_int_distribution<>(0, last)(random); };
  const std::string names[] = {"", "a", "b", "A"};
  for (int step = 0; step < 3000; ++step) {
    const int rows = list.RowCount();
    const int change = upTo(9);
    const std::string& name = names[upTo(3)];
    if (rows == 0 || change < 4) {
      list.AddRow(name);
    } else if (change < 6) {
      list.InsertRow(1 + upTo(rows), name);
    } else if (change < 8) {
      list.SetRowText(1 + upTo(rows - 1), name);
    } else if (change == 8 || step % 100 != 0) {
      list.RemoveRow(1 + upTo(rows - 1));
    } else {
      list.ClearRows();
    }
    const std::string& asked = names[upTo(3)];
    std::vector<int> scanned;
    for (int row = 1; row <= list.RowCount(); ++row) {
      if (list.RowText(row) == asked) {
        scanned.push_back(row);
      }
    }
    ASSERT_EQ(list.RowsNamed(asked), scanned) << "step " << step;
  }
}

}  // namespace
}  // namespace tallyo
