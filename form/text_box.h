#pragma once

#include <string>

#include "form/control.h"

namespace tallyo {

// A field that the person types into.
class TextBox : public Control {
 public:
  EventHandler OnGotFocus;
  EventHandler OnLostFocus;
  EventHandler OnKeyUp;

  [[nodiscard]] const std::string& Text() const { return text_; }
  void SetText(std::string text) {
    if (Assign(text_, std::move(text))) {
      caret_ = 0;
    }
  }

  // What stands beside the field.
  [[nodiscard]] const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption) { Assign(caption_, std::move(caption)); }

  // The cursor: the number of bytes before it.
  [[nodiscard]] std::size_t Caret() const { return caret_; }
  void SetCaret(std::size_t caret) { Assign(caret_, caret); }

  void GotFocus() const { Fire(OnGotFocus); }
  void LostFocus() const { Fire(OnLostFocus); }
  void KeyUp() const { Fire(OnKeyUp); }

 private:
  std::string text_;
  std::string caption_;
  std::size_t caret_ = 0;
};

}  // namespace tallyo
