#include "ui/qt/report_model.h"

#include <algorithm>
#include <utility>

#include "ui/qt/shown_string.h"

namespace tallyo {
namespace {

const std::string kNothing;

}  // namespace

ReportModel::ReportModel(const ReportList& list, std::vector<int> numberColumns)
    : list_(list), numberColumns_(std::move(numberColumns)) {}

void ReportModel::Refresh() {
  const int rows = list_.RowCount();
  const auto columns = static_cast<int>(list_.Headings().size());
  if (columns != columns_ || rows < rows_) {
    beginResetModel();
    rows_ = rows;
    columns_ = columns;
    endResetModel();
    return;
  }
  if (rows > rows_) {
    beginInsertRows({}, rows_, rows - 1);
    rows_ = rows;
    endInsertRows();
  }
  if (rows > 0 && columns > 0) {
    emit dataChanged(index(0, 0), index(rows - 1, columns - 1));
    emit headerDataChanged(Qt::Horizontal, 0, columns - 1);
  }
}

int ReportModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int ReportModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columns_;
}

QVariant ReportModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) {
    return {};
  }
  switch (role) {
    case Qt::DisplayRole:
      return Shown(Cell(index.row(), index.column()));
    case Qt::ToolTipRole:
      return ToolTipOf(Shown(Cell(index.row(), index.column())));
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(Qt::AlignVCenter |
                                 (HoldsNumbers(index.column()) ? Qt::AlignRight : Qt::AlignLeft));
    default:
      return {};
  }
}

QVariant ReportModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columns_) {
    return {};
  }
  if (role == Qt::TextAlignmentRole) {
    return QVariant::fromValue(Qt::AlignVCenter |
                               (HoldsNumbers(section) ? Qt::AlignRight : Qt::AlignLeft));
  }
  if (role != Qt::DisplayRole || static_cast<std::size_t>(section) >= list_.Headings().size()) {
    return {};
  }
  return Shown(list_.Headings()[static_cast<std::size_t>(section)].text);
}

const std::string& ReportModel::Cell(int row, int column) const {
  if (row >= list_.RowCount() || static_cast<std::size_t>(column) >= list_.Headings().size()) {
    return kNothing;
  }
  return column == 0 ? list_.RowText(row + 1) : list_.Value(row + 1, column);
}

bool ReportModel::HoldsNumbers(int column) const {
  return std::ranges::find(numberColumns_, column) != numberColumns_.end();
}

}  // namespace tallyo
