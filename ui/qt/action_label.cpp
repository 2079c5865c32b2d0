#include "ui/qt/action_label.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <algorithm>

#include "ui/qt/control_binding.h"
#include "ui/qt/shown_string.h"

namespace tallyo {
namespace {

constexpr int kPadding = 3;  // pixels above and below the text
constexpr double kLeastContrast = 2;

QColor FromForm(int color) {
  return {color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF};  // red is the lowest byte
}

double Luminance(const QColor& color) {
  return 0.2126 * color.redF() + 0.7152 * color.greenF() + 0.0722 * color.blueF();
}

double Contrast(const QColor& one, const QColor& other) {
  const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
  return (light + 0.05) / (dark + 0.05);
}

bool MovedByKey(const QFocusEvent& event) {
  return event.reason() == Qt::TabFocusReason || event.reason() == Qt::BacktabFocusReason ||
         event.reason() == Qt::ShortcutFocusReason;
}

}  // namespace

ActionLabel::ActionLabel(Mirror& mirror, Label& label, const Panel& panel, const QString& name,
                         QWidget* parent)
    : QAbstractButton(parent), mirror_(mirror), label_(label), panel_(panel) {
  setObjectName(name);
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  mirror_.Follow(label_, [this] { Show(); });
  connect(this, &QAbstractButton::clicked, this,
          [this] { mirror_.Send([this] { label_.Click(); }); });
}

void ActionLabel::Show() {
  setText(Shown(label_.Caption()));
  setAccessibleName(text());
  ControlBinding::ShowState(label_, *this);
  update();
}

QSize ActionLabel::sizeHint() const {
  return {fontMetrics().horizontalAdvance(text()) + 4 * kPadding,
          fontMetrics().height() + 2 * kPadding};
}

void ActionLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Mid));
  painter.setBrush(Background());
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  painter.setPen(Foreground());
  painter.drawText(rect(), static_cast<int>(Qt::AlignCenter), text());
  if (hasFocus()) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
  }
}

void ActionLabel::mouseMoveEvent(QMouseEvent* event) {
  QAbstractButton::mouseMoveEvent(event);
  event->accept();  // else the panel would take it for its own
  Hover();
}

void ActionLabel::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    click();
  } else {
    QAbstractButton::keyPressEvent(event);
  }
}

void ActionLabel::focusInEvent(QFocusEvent* event) {
  if (MovedByKey(*event)) {
    Hover();
  }
  QAbstractButton::focusInEvent(event);
}

void ActionLabel::focusOutEvent(QFocusEvent* event) {
  if (MovedByKey(*event)) {
    mirror_.Send([this] { panel_.MouseMove(); });
  }
  QAbstractButton::focusOutEvent(event);
}

void ActionLabel::Hover() {
  mirror_.Send([this] { label_.MouseMove(); });
}

// The colours of rest are those of the person's palette; the others are signals.
QColor ActionLabel::Background() const {
  return label_.BackColor() == kWhite ? palette().color(QPalette::Base)
                                      : FromForm(label_.BackColor());
}

QColor ActionLabel::Foreground() const {
  const bool resting = label_.BackColor() == kWhite;
  if (!isEnabled() || (resting && label_.TextColor() == kBlack)) {
    return palette().color(QPalette::Text);
  }
  const QColor color = FromForm(label_.TextColor());
  // A label that turns red keeps the colour of its text, which may be red as well.
  return Contrast(color, Background()) < kLeastContrast ? QColor(Qt::white) : color;
}

}  // namespace tallyo
