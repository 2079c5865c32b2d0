#include "ui/qt/control_binding.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <array>

#include "ui/qt/shown_string.h"

namespace tallyo {
namespace {

// Tells the program that a key was let go in a field.
class KeyUpFilter : public QObject {
 public:
  KeyUpFilter(Mirror& mirror, const TextBox& box, QObject* parent)
      : QObject(parent), mirror_(mirror), box_(box) {}

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::KeyRelease) {
      mirror_.Send([this] { box_.KeyUp(); });
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  Mirror& mirror_;
  const TextBox& box_;
};

constexpr int kLongestInput = 1 << 20;  // characters

std::size_t BytesBeforeCursor(const QLineEdit& edit) {
  return Typed(edit.text().left(edit.cursorPosition())).size();
}

int CursorPosition(const TextBox& box) {
  return static_cast<int>(Shown(std::string_view(box.Text()).substr(0, box.Caret())).size());
}

}  // namespace

void ControlBinding::ShowState(const Control& control, QWidget& widget) {
  widget.setEnabled(control.Enabled());
  widget.setVisible(control.Visible());
}

void ControlBinding::Bind(TextBox& box, QLineEdit& edit, QLabel& caption, const QString& name) {
  edit.setObjectName(name);
  edit.setMaxLength(kLongestInput);
  caption.setTextFormat(Qt::PlainText);
  caption.setBuddy(&edit);
  mirror_.Follow(box, [&] {
    caption.setText(Shown(box.Caption()));
    edit.setAccessibleName(caption.text());
    ShowState(box, edit);
    ShowState(box, caption);
    ShowText(box, edit);
  });
  QObject::connect(&edit, &QLineEdit::textEdited, &edit, [&] { TakeText(box, edit); });
  QObject::connect(&edit, &QLineEdit::cursorPositionChanged, &edit, [&] { TakeCaret(box, edit); });
  edit.installEventFilter(new KeyUpFilter(mirror_, box, &edit));
  focus_.Join(box, edit, [&] {
    edit.deselect();  // reaching a field by a key would select all of it
    ShowText(box, edit);
  });
}

// The person's own text and cursor are left alone; only what differs is the program's doing.
void ControlBinding::ShowText(const TextBox& box, QLineEdit& edit) {
  const QSignalBlocker quiet(&edit);
  const QString text = Shown(box.Text());
  if (edit.text() != text) {
    edit.setText(text);
  }
  const int cursor = CursorPosition(box);
  if (edit.cursorPosition() != cursor) {
    edit.setCursorPosition(cursor);
  }
}

void ControlBinding::TakeText(TextBox& box, const QLineEdit& edit) {
  mirror_.Send([&] {
    box.SetText(Typed(edit.text()));
    box.SetCaret(BytesBeforeCursor(edit));
  });
}

void ControlBinding::TakeCaret(TextBox& box, const QLineEdit& edit) {
  if (Shown(box.Text()) == edit.text()) {
    mirror_.Send([&] { box.SetCaret(BytesBeforeCursor(edit)); });
  }
}

void ControlBinding::Bind(TextBox& box, QPlainTextEdit& text, const QString& name) {
  text.setObjectName(name);
  text.setReadOnly(true);
  mirror_.Follow(box, [&] {
    ShowState(box, text);
    const QString shown = Shown(box.Text());
    if (text.toPlainText() != shown) {
      text.setPlainText(shown);
    }
  });
}

void ControlBinding::Bind(CheckBox& box, QCheckBox& widget, const QString& name) {
  widget.setObjectName(name);
  mirror_.Follow(box, [&] {
    widget.setText(Shown(box.Caption()));
    widget.setAccessibleName(SpokenCaption(box.Caption()));
    ShowState(box, widget);
    const std::array states{Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked};
    widget.setTristate(box.Value() == 2);
    widget.setCheckState(states.at(static_cast<std::size_t>(box.Value())));
  });
  QObject::connect(&widget, &QCheckBox::clicked, &widget,
                   [&] { mirror_.Send([&] { box.SetValue(box.Value() == 0 ? 1 : 0); }); });
}

void ControlBinding::Bind(Button& button, QAbstractButton& widget, const QString& name) {
  widget.setObjectName(name);
  mirror_.Follow(button, [&] {
    widget.setText(Shown(button.Caption()));
    widget.setAccessibleName(SpokenCaption(button.Caption()));
    ShowState(button, widget);
  });
  QObject::connect(&widget, &QAbstractButton::clicked, &widget,
                   [&] { mirror_.Send([&] { button.Click(); }); });
}

void ControlBinding::Bind(Label& label, QLabel& widget, const QString& name) {
  widget.setObjectName(name);
  widget.setTextFormat(Qt::PlainText);
  mirror_.Follow(label, [&] {
    widget.setText(Shown(label.Caption()));
    ShowState(label, widget);
  });
}

}  // namespace tallyo
