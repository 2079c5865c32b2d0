#include "form/report_list.h"

#include "text/runtime_error.h"

namespace tallyo {
namespace {

const std::string kNoValue;
const std::vector<int> kNoRows;

void Require(bool condition, const char* what) {
  if (!condition) {
    throw RuntimeError(what);
  }
}

}  // namespace

void ReportList::AddHeading(Heading heading) {
  headings_.push_back(std::move(heading));
  Changed();
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
  const bool atEnd = row == RowCount() + 1;
  if (indexValid_ && atEnd) {
    index_[text].push_back(row);
  } else {
    indexValid_ = false;
  }
  rows_.insert(rows_.begin() + (row - 1), Row{std::move(text), {}});
  Changed();
}

void ReportList::RemoveRow(int row) {
  Require(row >= 1 && row <= RowCount(), "no such row");
  rows_.erase(rows_.begin() + (row - 1));
  indexValid_ = false;
  if (selectedRow_ == row) {
    selectedRow_ = 0;
  } else if (selectedRow_ > row) {
    --selectedRow_;
  }
  Changed();
}

void ReportList::ClearRows() {
  rows_.clear();
  index_.clear();
  indexValid_ = true;
  selectedRow_ = 0;
  Changed();
}

void ReportList::SetRowText(int row, std::string text) {
  if (Assign(At(row).text, std::move(text))) {
    indexValid_ = false;
  }
}

const std::string& ReportList::Value(int row, int column) const {
  const Row& found = At(row);
  Require(column >= 1 && static_cast<std::size_t>(column) < headings_.size(), "no such column");
  const auto at = static_cast<std::size_t>(column) - 1;
  return at < found.values.size() ? found.values[at] : kNoValue;
}

void ReportList::SetValue(int row, int column, std::string value) {
  Row& found = At(row);
  Require(column >= 1 && static_cast<std::size_t>(column) < headings_.size(), "no such column");
  if (found.values.size() < static_cast<std::size_t>(column)) {
    found.values.resize(static_cast<std::size_t>(column));
  }
  Assign(found.values[static_cast<std::size_t>(column) - 1], std::move(value));
}

const std::vector<int>& ReportList::RowsNamed(std::string_view text) const {
  if (!indexValid_) {
    BuildIndex();
  }
  const auto found = index_.find(text);
  return found == index_.end() ? kNoRows : found->second;
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

const ReportList::Row& ReportList::At(int row) const {
  Require(row >= 1 && row <= RowCount(), "no such row");
  return rows_[static_cast<std::size_t>(row) - 1];
}

ReportList::Row& ReportList::At(int row) {
  Require(row >= 1 && row <= RowCount(), "no such row");
  return rows_[static_cast<std::size_t>(row) - 1];
}

void ReportList::BuildIndex() const {
  index_.clear();
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    index_[rows_[i].text].push_back(static_cast<int>(i) + 1);
  }
  indexValid_ = true;
}

}  // namespace tallyo
