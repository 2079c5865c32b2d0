#include "form/report_list.h"

#include <iterator>

#include "text/runtime_error.h"

namespace tallyo {
namespace {

const std::vector<int> kNoRows;

void Require(bool condition, const char* what) {
  if (!condition) {
    throw RuntimeError(what);
  }
}

}  // namespace

void ReportList::AddHeading(Heading heading) {
  headings_.push_back(std::move(heading));
  WidenTo(headings_.size());
  Changed();
}

void ReportList::WidenTo(std::size_t stride) {
  if (stride <= stride_) {
    return;
  }
  std::vector<std::string> cells(static_cast<std::size_t>(rowCount_) * stride);
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    cells[i / stride_ * stride + i % stride_] = std::move(cells_[i]);
  }
  cells_ = std::move(cells);
  stride_ = stride;
}

void ReportList::SetHeading(int column, std::string text) {
  Require(column >= 1 && static_cast<std::size_t>(column) <= headings_.size(), "no such column");
  Assign(headings_[static_cast<std::size_t>(column) - 1].text, std::move(text));
}

void ReportList::RemoveLastHeading() {
  Require(!headings_.empty(), "no such column");
  headings_.pop_back();
  Changed();
}

void ReportList::InsertRow(int row, std::string text) {
  Require(row >= 1 && row <= RowCount() + 1, "no such row");
  if (indexValid_ && row == RowCount() + 1) {
    Group& group = index_[text];
    group.push_back(row);
    groupOf_.push_back(&group);
  } else {
    indexValid_ = false;
  }
  const auto place = std::next(cells_.begin(), static_cast<std::ptrdiff_t>(stride_) * (row - 1));
  *cells_.insert(place, stride_, std::string()) = std::move(text);
  ++rowCount_;
  Changed();
}

void ReportList::RemoveRow(int row) {
  const auto place = std::next(cells_.begin(), static_cast<std::ptrdiff_t>(CellOf(row, 0)));
  cells_.erase(place, std::next(place, static_cast<std::ptrdiff_t>(stride_)));
  --rowCount_;
  indexValid_ = false;
  if (selectedRow_ == row) {
    selectedRow_ = 0;
  } else if (selectedRow_ > row) {
    --selectedRow_;
  }
  Changed();
}

void ReportList::ClearRows() {
  cells_.clear();
  rowCount_ = 0;
  index_.clear();
  groupOf_.clear();
  indexValid_ = true;
  selectedRow_ = 0;
  Changed();
}

void ReportList::SetRowText(int row, std::string text) {
  if (Assign(cells_[CellOf(row, 0)], std::move(text))) {
    indexValid_ = false;
  }
}

const std::string& ReportList::Value(int row, int column) const {
  Require(column >= 1, "no such column");
  return cells_[CellOf(row, column)];
}

void ReportList::SetValue(int row, int column, std::string_view value) {
  Require(column >= 1, "no such column");
  std::string& cell = cells_[CellOf(row, column)];
  if (cell != value) {
    cell = value;
    Changed();
  }
}

const std::vector<int>& ReportList::RowsNamed(std::string_view text) const {
  if (!indexValid_) {
    BuildIndex();
  }
  if (nextAsked_ < groupOf_.size() && cells_[nextAsked_ * stride_] == text) {
    return *groupOf_[nextAsked_++];
  }
  const auto found = index_.find(text);
  if (found == index_.end()) {
    return kNoRows;
  }
  nextAsked_ = static_cast<std::size_t>(found->second.front());
  return found->second;
}

void ReportList::Select(int row) {
  Require(row >= 0 && row <= RowCount(), "no such row");
  Assign(selectedRow_, row);
}

void ReportList::ItemClick(int row) const {
  Require(row >= 1 && row <= RowCount(), "no such row");
  if (OnItemClick) {
    OnItemClick(row);
  }
}

// Column 0 is the row's own text.
std::size_t ReportList::CellOf(int row, int column) const {
  Require(row >= 1 && row <= RowCount(), "no such row");
  Require(column == 0 || (column > 0 && static_cast<std::size_t>(column) < headings_.size()),
          "no such column");
  return (static_cast<std::size_t>(row) - 1) * stride_ + static_cast<std::size_t>(column);
}

void ReportList::BuildIndex() const {
  index_.clear();
  groupOf_.clear();
  for (int row = 1; row <= RowCount(); ++row) {
    Group& group = index_[RowText(row)];
    group.push_back(row);
    groupOf_.push_back(&group);
  }
  indexValid_ = true;
}

}  // namespace tallyo
