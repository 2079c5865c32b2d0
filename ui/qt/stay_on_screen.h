#pragma once

#include <QWidget>

namespace tallyo {

// Moves a window that is seen so far that it does not reach beyond the edge of the desktop, or no
// farther than it has to.
void StayOnScreen(QWidget& window);

}  // namespace tallyo
