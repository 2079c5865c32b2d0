#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "form/control.h"

namespace tallyo {

// A list with report columns. Rows count from 1. Column 1 of the headings is the row's own text;
// the value columns of a row count from 1 too, so that value column c stands under heading c + 1.
// Every row and column number that is not there is a RuntimeError.
class ReportList : public Control {
 public:
  struct Heading {
    std::string text;
    int width = 0;  // twips

    bool operator==(const Heading&) const = default;
  };

  std::function<void(int row)> OnItemClick;

  [[nodiscard]] const std::vector<Heading>& Headings() const { return headings_; }
  void AddHeading(Heading heading);
  void SetHeading(int column, std::string text);
  void RemoveLastHeading();

  [[nodiscard]] int RowCount() const { return rowCount_; }
  void AddRow(std::string text) { InsertRow(RowCount() + 1, std::move(text)); }
  void InsertRow(int row, std::string text);
  void RemoveRow(int row);
  void ClearRows();

  [[nodiscard]] const std::string& RowText(int row) const { return cells_[CellOf(row, 0)]; }
  void SetRowText(int row, std::string text);

  // "" where nothing was set.
  [[nodiscard]] const std::string& Value(int row, int column) const;
  void SetValue(int row, int column, std::string_view value);

  // The rows with exactly this text, in list order. Costs no walk through the list as long as no
  // row was renamed, inserted before another or removed since the last question, and next to
  // nothing for the row behind the one asked for last. The reference lives until the list changes.
  [[nodiscard]] const std::vector<int>& RowsNamed(std::string_view text) const;

  // 0: none.
  [[nodiscard]] int SelectedRow() const { return selectedRow_; }
  void Select(int row);

  // The person's click on a row.
  void ItemClick(int row) const;

 private:
  using Group = std::vector<int>;  // the rows of one text, in list order
  struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>()(text);
    }
  };

  [[nodiscard]] std::size_t CellOf(int row, int column) const;
  void WidenTo(std::size_t stride);
  void BuildIndex() const;

  std::vector<Heading> headings_;
  // Row by row, stride_ cells each: the row's text and its values. A removed column keeps its
  // cells.
  std::vector<std::string> cells_;
  std::size_t stride_ = 1;
  int rowCount_ = 0;
  int selectedRow_ = 0;
  mutable bool indexValid_ = true;
  mutable std::unordered_map<std::string, Group, TextHash, std::equal_to<>> index_;
  mutable std::vector<const Group*> groupOf_;  // by row
  mutable std::size_t nextAsked_ = 0;          // the row behind the one that was asked for last
};

}  // namespace tallyo
