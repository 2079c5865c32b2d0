#pragma once

#include <string>

#include "form/control.h"

namespace tallyo {

enum class WindowState { Normal, Minimized };
enum class Pointer { Normal, Hourglass };

// The frame around the screens. Its Place holds its size in twips.
class Window : public Control {
 public:
  [[nodiscard]] const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption) { Assign(caption_, std::move(caption)); }

  [[nodiscard]] WindowState State() const { return state_; }
  void SetState(WindowState state) { Assign(state_, state); }

  [[nodiscard]] Pointer MousePointer() const { return pointer_; }
  void SetMousePointer(Pointer pointer) { Assign(pointer_, pointer); }

 private:
  std::string caption_;
  WindowState state_ = WindowState::Normal;
  Pointer pointer_ = Pointer::Normal;
};

}  // namespace tallyo
