#pragma once

#include <string>

#include "form/control.h"

namespace tallyo {

class Button : public Control {
 public:
  EventHandler OnClick;

  [[nodiscard]] const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption) { Assign(caption_, std::move(caption)); }

  // The person's click; nothing where the button is disabled.
  void Click() const {
    if (Enabled()) {
      Fire(OnClick);
    }
  }

 private:
  std::string caption_;
};

}  // namespace tallyo
