#pragma once

#include <QStyledItemDelegate>

namespace tallyo {

// Paints a cell of the month: the more hits, the nearer to the highlight colour its ground is, and
// its number as small as it must be to fit in.
class MonthCellDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
};

}  // namespace tallyo
