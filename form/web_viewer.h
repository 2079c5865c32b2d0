#pragma once

#include <string>

#include "form/control.h"

namespace tallyo {

// Shows a page; loading it is the view's work, and nothing waits for it.
class WebViewer : public Control {
 public:
  // An address, or the path of a local file. Going to the same address again loads it again.
  void Navigate(std::string address) {
    address_ = std::move(address);
    Changed();
  }
  [[nodiscard]] const std::string& Address() const { return address_; }

 private:
  std::string address_;
};

}  // namespace tallyo
