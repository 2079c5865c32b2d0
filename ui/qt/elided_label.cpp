#include "ui/qt/elided_label.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>
#include <algorithm>

#include "ui/qt/shown_string.h"

namespace tallyo {
namespace {

constexpr qsizetype kLongestLine = 1000;  // characters that are worth measuring
constexpr int kWidestHint = 2000;         // pixels

}  // namespace

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) { setTextFormat(Qt::PlainText); }

QSize ElidedLabel::sizeHint() const {
  const int width = fontMetrics().horizontalAdvance(Line()) + 2;
  return {std::min(width, kWidestHint), fontMetrics().height()};
}

QSize ElidedLabel::minimumSizeHint() const { return {0, fontMetrics().height()}; }

bool ElidedLabel::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip && !Fits()) {
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), ToolTipOf(text()), this);
    return true;
  }
  return QLabel::event(event);
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QString line = fontMetrics().elidedText(Line(), Qt::ElideRight, width());
  style()->drawItemText(&painter, rect(), static_cast<int>(alignment()), palette(), isEnabled(),
                        line, foregroundRole());
}

QString ElidedLabel::Line() const { return text().left(kLongestLine).simplified(); }

bool ElidedLabel::Fits() const { return fontMetrics().horizontalAdvance(Line()) <= width(); }

}  // namespace tallyo
