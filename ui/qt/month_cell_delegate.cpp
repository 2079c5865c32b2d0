#include "ui/qt/month_cell_delegate.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>
#include <cmath>

#include "ui/qt/mixed_color.h"
#include "ui/qt/month_model.h"

namespace tallyo {
namespace {

constexpr double kFaintest = 0.10;     // parts of the highlight colour in a cell with few hits
constexpr double kStrongest = 0.55;    // and in the one with most
constexpr double kHoursPart = 0.05;    // parts of the text colour behind the hours of the day
constexpr int kSideRoom = 3;           // pixels beside the number
constexpr double kSmallestFont = 5;    // points
constexpr double kRoundingRoom = 0.5;  // pixels: a width asked again may come out a little more

}  // namespace

void ShrinkToFit(QFont& font, const QString& text, int width) {
  while (QFontMetricsF(font).horizontalAdvance(text) > width && font.pointSizeF() > kSmallestFont) {
    font.setPointSizeF(font.pointSizeF() - 0.5);
  }
}

void MonthCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const {
  const QPalette& palette = option.palette;
  const bool selected = option.state.testFlag(QStyle::State_Selected);
  const double share = index.data(MonthModel::ShareRole).toDouble();
  QColor ground = palette.color(QPalette::Base);
  if (index.column() == 0) {
    ground = Mixed(ground, palette.color(QPalette::Text), kHoursPart);
  }
  if (share > 0) {
    ground = Mixed(ground, palette.color(QPalette::Highlight),
                   kFaintest + std::sqrt(share) * (kStrongest - kFaintest));
  }
  painter->save();
  painter->fillRect(option.rect, ground);
  QFont font = option.font;
  font.setBold(selected);
  const QString text = index.data().toString();
  const QRect room = option.rect.adjusted(kSideRoom, 0, -kSideRoom, 0);
  ShrinkToFit(font, text, room.width());
  painter->setFont(font);
  painter->setPen(palette.color(QPalette::Text));
  const QString shown =
      QFontMetricsF(font).elidedText(text, Qt::ElideRight, room.width() + kRoundingRoom);
  painter->drawText(room, static_cast<int>(Qt::AlignRight | Qt::AlignVCenter), shown);
  if (selected) {  // a line above and below leaves the colours of the hits to be seen
    painter->setPen(palette.color(QPalette::Highlight));
    painter->drawLine(option.rect.topLeft(), option.rect.topRight());
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
  }
  if (option.state.testFlag(QStyle::State_HasFocus)) {
    painter->setPen(QPen(palette.color(QPalette::Highlight), 2));
    painter->drawRect(option.rect.adjusted(1, 1, -1, -1));
  }
  painter->restore();
}

}  // namespace tallyo
