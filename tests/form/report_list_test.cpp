#include "form/report_list.h"

#include <gtest/gtest.h>

#include <random>

#include "text/runtime_error.h"

namespace tallyo {
namespace {

std::vector<int> ScannedRowsNamed(const ReportList& list, std::string_view text) {
  std::vector<int> rows;
  for (int row = 1; row <= list.RowCount(); ++row) {
    if (list.RowText(row) == text) {
      rows.push_back(row);
    }
  }
  return rows;
}

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
  const struct {
    const char* name;
    std::function<void(ReportList&)> act;
  } cases[] = {
      {"text of row 0", [](ReportList& l) { static_cast<void>(l.RowText(0)); }},
      {"text behind the last", [](ReportList& l) { static_cast<void>(l.RowText(3)); }},
      {"renaming", [](ReportList& l) { l.SetRowText(3, "x"); }},
      {"value column 0", [](ReportList& l) { static_cast<void>(l.Value(1, 0)); }},
      {"value without heading", [](ReportList& l) { static_cast<void>(l.Value(1, 2)); }},
      {"setting without heading", [](ReportList& l) { l.SetValue(1, 2, "x"); }},
      {"setting in row 3", [](ReportList& l) { l.SetValue(3, 1, "x"); }},
      {"inserting with a gap", [](ReportList& l) { l.InsertRow(4, "x"); }},
      {"inserting at 0", [](ReportList& l) { l.InsertRow(0, "x"); }},
      {"removing", [](ReportList& l) { l.RemoveRow(3); }},
      {"selecting", [](ReportList& l) { l.Select(3); }},
      {"clicking", [](ReportList& l) { l.ItemClick(3); }},
      {"heading 0", [](ReportList& l) { l.SetHeading(0, "x"); }},
      {"heading 3", [](ReportList& l) { l.SetHeading(3, "x"); }},
  };
  for (const auto& c : cases) {
    EXPECT_THROW(c.act(list), RuntimeError) << c.name;
  }
  EXPECT_EQ(list.RowCount(), 2);
  EXPECT_EQ(list.Value(2, 1), "of b");
}

TEST_F(ReportListTest, ValuesGoWithTheirRow) {
  list.InsertRow(1, "new");
  EXPECT_EQ(list.Value(3, 1), "of b");
  EXPECT_EQ(list.Value(1, 1), "");
  list.RemoveRow(2);
  EXPECT_EQ(list.RowText(2), "b");
  EXPECT_EQ(list.Value(2, 1), "of b");
}

TEST_F(ReportListTest, TheSelectionGoesWithItsRow) {
  list.Select(2);
  list.RemoveRow(1);
  EXPECT_EQ(list.SelectedRow(), 1);
  list.RemoveRow(1);
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
    ASSERT_EQ(list.RowsNamed(asked), ScannedRowsNamed(list, asked)) << "step " << step;
  }
}

}  // namespace
}  // namespace tallyo
