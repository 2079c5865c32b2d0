#pragma once

#include <string>

#include "form/control.h"

namespace tallyo {

// A box with a tick: 0 is unticked, 1 ticked, 2 greyed.
class CheckBox : public Control {
 public:
  EventHandler OnClick;  // runs when the value really changes, by the person or by the program

  [[nodiscard]] int Value() const { return value_; }
  void SetValue(int value) {
    if (Assign(value_, value)) {
      Fire(OnClick);
    }
  }

  [[nodiscard]] const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption) { Assign(caption_, std::move(caption)); }

 private:
  int value_ = 0;
  std::string caption_;
};

}  // namespace tallyo
