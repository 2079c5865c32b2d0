#pragma once

#include <QAbstractButton>

#include "form/label.h"
#include "form/panel.h"
#include "ui/qt/mirror.h"

namespace tallyo {

// A label that acts like a button: with the pointer, or by Tab and Space or Enter. Reaching it by
// key is to the program what moving the pointer over it is, and leaving it by key what moving the
// pointer off it, over the panel, is.
class ActionLabel : public QAbstractButton {
 public:
  // The label and its panel outlive the widget's events.
  ActionLabel(Mirror& mirror, Label& label, const Panel& panel, const QString& name,
              QWidget* parent);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void Show();
  void Hover();
  [[nodiscard]] QColor Background() const;
  [[nodiscard]] QColor Foreground() const;

  Mirror& mirror_;
  Label& label_;
  const Panel& panel_;
};

}  // namespace tallyo
