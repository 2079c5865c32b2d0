#pragma once

#include "form/control.h"

namespace tallyo {

// One screen of the window. Its Place is its size and where it stands in the window.
class Panel : public Control {
 public:
  EventHandler OnMouseMove;

  // The pointer over the panel itself, off its controls.
  void MouseMove() const { Fire(OnMouseMove); }
};

}  // namespace tallyo
