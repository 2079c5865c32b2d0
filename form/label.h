#pragma once

#include <string>

#include "form/control.h"

namespace tallyo {

// Colours as 0xBBGGRR, the form in which the window's rules state them.
inline constexpr int kWhite = 16777215;
inline constexpr int kBlack = 0;
inline constexpr int kRed = 255;
inline constexpr int kGreen = 65280;

// A text on the window; some labels serve as buttons.
class Label : public Control {
 public:
  EventHandler OnChange;  // runs on every assignment of the caption, an equal one included
  EventHandler OnClick;
  EventHandler OnMouseMove;

  [[nodiscard]] const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption) {
    Assign(caption_, std::move(caption));
    Fire(OnChange);
  }

  [[nodiscard]] int BackColor() const { return backColor_; }
  [[nodiscard]] int TextColor() const { return textColor_; }
  void SetColors(int backColor, int textColor) {
    Assign(backColor_, backColor);
    Assign(textColor_, textColor);
  }
  void SetBackColor(int backColor) { Assign(backColor_, backColor); }

  // The person's click and the pointer over the label; nothing where the label is disabled.
  void Click() const {
    if (Enabled()) {
      Fire(OnClick);
    }
  }
  void MouseMove() const {
    if (Enabled()) {
      Fire(OnMouseMove);
    }
  }

 private:
  std::string caption_;
  int backColor_ = kWhite;
  int textColor_ = kBlack;
};

}  // namespace tallyo
