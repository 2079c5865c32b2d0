#include "ui/qt/stay_on_screen.h"

#include <QScreen>
#include <algorithm>

namespace tallyo {

void StayOnScreen(QWidget& window) {
  const QRect desktop = window.screen()->availableGeometry();
  QRect frame = window.frameGeometry();
  // The desktop may not have followed the window's last change of size yet.
  frame.setSize(frame.size() - window.geometry().size() + window.size());
  if (!window.isVisible() || desktop.contains(frame)) {
    return;
  }
  frame.moveRight(std::min(frame.right(), desktop.right()));
  frame.moveBottom(std::min(frame.bottom(), desktop.bottom()));
  frame.moveLeft(std::max(frame.left(), desktop.left()));
  frame.moveTop(std::max(frame.top(), desktop.top()));
  window.move(frame.topLeft());
}

}  // namespace tallyo
