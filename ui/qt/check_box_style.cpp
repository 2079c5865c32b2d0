#include "ui/qt/check_box_style.h"

#include <QPainter>
#include <QStyleOption>

namespace tallyo {

void CheckBoxStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                  QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  const QColor text = option->palette.color(QPalette::Text);
  const bool dark = option->palette.color(QPalette::Base).lightness() < text.lightness();
  if (element == PE_IndicatorCheckBox && dark) {
    painter->save();
    painter->setBrush(Qt::NoBrush);
    painter->setOpacity(0.5);
    painter->setPen(text);
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    painter->restore();
  }
}

}  // namespace tallyo
