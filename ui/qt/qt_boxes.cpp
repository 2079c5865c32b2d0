#include "ui/qt/qt_boxes.h"

#include <QMessageBox>

#include "settings/names.h"
#include "ui/qt/shown_string.h"

namespace tallyo {
namespace {

constexpr qsizetype kLongestText = 1200;  // characters that a box shows at once

void ShowText(QMessageBox& widget, const QString& text) {
  widget.setTextFormat(Qt::PlainText);
  if (text.size() <= kLongestText) {
    widget.setText(Breakable(text));
    return;
  }
  widget.setText(Breakable(text.left(kLongestText)) + QChar(0x2026));
  widget.setDetailedText(text);
}

}  // namespace

BoxAnswer QtBoxes::Ask(const MessageBox& box) {
  const bool question = box.buttons == BoxButtons::YesNo;
  QMessageBox widget(window_);
  widget.setObjectName("MessageBox");
  widget.setWindowTitle(box.title.empty() ? Shown(names::AppTitle) : Shown(box.title));
  widget.setIcon(box.icon == BoxIcon::Critical ? QMessageBox::Critical : QMessageBox::Information);
  ShowText(widget, Shown(box.text));
  if (question) {
    widget.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    widget.setDefaultButton(QMessageBox::No);  // a stray Enter must not agree to anything
    widget.setEscapeButton(QMessageBox::No);
  } else {
    widget.setStandardButtons(QMessageBox::Ok);
  }
  const int answer = widget.exec();
  if (OnClosed) {
    OnClosed();
  }
  if (!question) {
    return BoxAnswer::Ok;
  }
  return answer == QMessageBox::Yes ? BoxAnswer::Yes : BoxAnswer::No;
}

}  // namespace tallyo
