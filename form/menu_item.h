#pragma once

#include <string>
#include <vector>

#include "form/control.h"

namespace tallyo {

// A menu, a menu item or a separator between items. "&" in a caption marks the access key.
class MenuItem : public Control {
 public:
  EventHandler OnClick;  // for a menu: it is being opened

  // What the program calls the item ("mnuSave").
  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] bool IsSeparator() const { return separator_; }

  [[nodiscard]] const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption) { Assign(caption_, std::move(caption)); }

  // The items of a menu, borrowed, in the order in which they are shown.
  [[nodiscard]] const std::vector<MenuItem*>& Items() const { return items_; }

  void Describe(std::string name, std::string caption, std::vector<MenuItem*> items = {}) {
    name_ = std::move(name);
    caption_ = std::move(caption);
    items_ = std::move(items);
  }
  void DescribeSeparator(std::string name) {
    name_ = std::move(name);
    separator_ = true;
  }

  // The person's click; nothing where the item is disabled.
  void Click() const {
    if (Enabled()) {
      Fire(OnClick);
    }
  }

 private:
  std::string name_;
  std::string caption_;
  std::vector<MenuItem*> items_;
  bool separator_ = false;
};

}  // namespace tallyo
