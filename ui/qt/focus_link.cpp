#include "ui/qt/focus_link.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <utility>

namespace tallyo {

FocusLink::FocusLink(Mirror& mirror, QWidget& window) : mirror_(mirror), window_(window) {
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget* /*old*/, QWidget* now) { FocusMoved(now); });
}

void FocusLink::Join(TextBox& box, QWidget& field, std::function<void()> entered) {
  fields_[&field] = {&box, std::move(entered)};
  widgets_[&box] = &field;
}

void FocusLink::Settle() {
  if (GiveProgramsChoice()) {
    return;
  }
  QWidget* const now = QApplication::focusWidget();
  if (IsOwn(now) && BoxOf(now) != known_) {
    Report(now);
  }
}

// The field that the program has put the focus into since last time, if any, gets it.
bool FocusLink::GiveProgramsChoice() {
  const TextBox* const wanted = mirror_.Form().Focused();
  if (wanted == nullptr || std::exchange(known_, wanted) == wanted) {
    return false;
  }
  const auto found = widgets_.find(wanted);
  if (found == widgets_.end() || !found->second->isVisible()) {
    return false;
  }
  found->second->setFocus(Qt::OtherFocusReason);
  return true;
}

bool FocusLink::IsOwn(const QWidget* widget) const {
  return widget != nullptr && widget->window() == &window_ && widget->isVisible() &&
         qobject_cast<const QMenuBar*>(widget) == nullptr &&
         qobject_cast<const QMenu*>(widget) == nullptr;
}

TextBox* FocusLink::BoxOf(const QWidget* widget) const {
  const auto found = fields_.find(widget);
  return found == fields_.end() ? nullptr : found->second.box;
}

void FocusLink::FocusMoved(QWidget* now) {
  // While a pass hides and shows panels the focus jumps; what counts is where it ends.
  if (!mirror_.Showing() && IsOwn(now) && BoxOf(now) != mirror_.Form().Focused()) {
    Report(now);
  }
}

void FocusLink::Report(QWidget* now) {
  TextBox* const box = BoxOf(now);
  known_ = box;
  mirror_.Send([&] {
    if (box != nullptr) {
      mirror_.Form().SetFocus(*box);
    } else {
      mirror_.Form().LeaveFocus();
    }
  });
  if (box != nullptr) {
    fields_[now].entered();
  }
}

}  // namespace tallyo
