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

  [[nodiscard]] int RowCount() const { return static_cast<int>(rows_.size()); }
  void AddRow(std::string text) { InsertRow(RowCount() + 1, std::move(text)); }
  void InsertRow(int row, std::string text);
  void RemoveRow(int row);
  void ClearRows();

  [[nodiscard]] const std::string& RowText(int row) const { return At(row).text; }
  void SetRowText(int row, std::string text);

  // "" where nothing was set.
  [[nodiscard]] const std::string& Value(int row, int column) const;
  void SetValue(int row, int column, std::string value);

  // The rows with exactly this text, in list order. Costs no walk through the list as long as no
  // row was renamed, inserted before another or removed since the last question. The reference
  // lives until the list changes.
  [[nodiscard]] const std::vector<int>& RowsNamed(std::string_view text) const;

  // 0: none.
  [[nodiscard]] int SelectedRow() const { return selectedRow_; }
  void Select(int row);

  // The person's click on a row.
  void ItemClick(int row) const;

 private:
  struct Row {
    std::string text;
    std::vector<std::string> values;
  };
  struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>()(text);
    }
  };

  [[nodiscard]] const Row& At(int row) const;
  [[nodiscard]] Row& At(int row);
  void BuildIndex() const;

  std::vector<Heading> headings_;
  std::vector<Row> rows_;
  int selectedRow_ = 0;
  mutable bool indexValid_ = true;
  mutable std::unordered_map<std::string, std::vector<int>, TextHash, std::equal_to<>> index_;
};

}  // namespace tallyo
