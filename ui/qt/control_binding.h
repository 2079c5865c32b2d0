#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QWidget>
#include <string_view>

#include "form/button.h"
#include "form/check_box.h"
#include "form/label.h"
#include "form/text_box.h"
#include "ui/qt/focus_link.h"
#include "ui/qt/mirror.h"

class QAbstractButton;
class QCheckBox;
class QPlainTextEdit;

namespace tallyo {

// Ties simple controls to their widgets, both ways. `name` is what the program calls the control
// ("Text1_0"); it becomes the widget's object name. All widgets outlive the events of the mirror.
class ControlBinding {
 public:
  ControlBinding(Mirror& mirror, FocusLink& focus) : mirror_(mirror), focus_(focus) {}

  // A field and the label beside it, which names it and goes with it.
  void Bind(TextBox& box, QLineEdit& edit, QLabel& caption, const QString& name);

  // A text that is only shown.
  void Bind(TextBox& box, QPlainTextEdit& text, const QString& name);

  void Bind(CheckBox& box, QCheckBox& widget, const QString& name);
  void Bind(Button& button, QAbstractButton& widget, const QString& name);
  void Bind(Label& label, QLabel& widget, const QString& name);

  [[nodiscard]] Mirror& View() const { return mirror_; }
  [[nodiscard]] MainForm& Form() const { return mirror_.Form(); }

  // What every control has: whether it can be used and seen.
  static void ShowState(const Control& control, QWidget& widget);

 private:
  static void ShowText(const TextBox& box, QLineEdit& edit);
  void TakeText(TextBox& box, const QLineEdit& edit);
  void TakeCaret(TextBox& box, const QLineEdit& edit);

  Mirror& mirror_;
  FocusLink& focus_;
};

}  // namespace tallyo
