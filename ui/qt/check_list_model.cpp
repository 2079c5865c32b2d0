#include "ui/qt/check_list_model.h"

#include "ui/qt/shown_string.h"

namespace tallyo {

void CheckListModel::Refresh() {
  const auto rows = static_cast<int>(list_.Lines().size());
  if (rows != rows_) {
    beginResetModel();
    rows_ = rows;
    endResetModel();
  } else if (rows > 0) {
    emit dataChanged(index(0), index(rows - 1));
  }
}

int CheckListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_;
}

QVariant CheckListModel::data(const QModelIndex& index, int role) const {
  const auto row = static_cast<std::size_t>(index.row());
  if (!index.isValid() || row >= list_.Lines().size()) {
    return {};
  }
  const CheckList::Line& line = list_.Lines()[row];
  switch (role) {
    case Qt::DisplayRole:
      return Shown(line.text);
    case Qt::ToolTipRole:
      return ToolTipOf(Shown(line.text));
    case Qt::CheckStateRole:
      return line.checked ? Qt::Checked : Qt::Unchecked;
    default:
      return {};
  }
}

bool CheckListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  const auto row = static_cast<std::size_t>(index.row());
  if (role != Qt::CheckStateRole || !index.isValid() || row >= list_.Lines().size()) {
    return false;
  }
  mirror_.Send([&] { list_.Check(row, value.toInt() == Qt::Checked); });
  emit dataChanged(index, index, {Qt::CheckStateRole});
  return true;
}

Qt::ItemFlags CheckListModel::flags(const QModelIndex& /*index*/) const {
  return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable |
         Qt::ItemNeverHasChildren;
}

}  // namespace tallyo
