#pragma once

#include <QStyledItemDelegate>

namespace tallyo {

// Paints a cell of the month: the more hits, the nearer to the highlight colour its ground is, and
// its number as small as it must be to fit in, or, where none does, with its end left out.
class MonthCellDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
};

// Makes the font smaller, within what can be read, until the text is no wider.
void ShrinkToFit(QFont& font, const QString& text, int width);

}  // namespace tallyo
