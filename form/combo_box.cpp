#include "form/combo_box.h"

#include <algorithm>

#include "text/runtime_error.h"

namespace tallyo {
namespace {

void RequireItem(const std::vector<std::string>& items, int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= items.size()) {
    throw RuntimeError("no such item");
  }
}

}  // namespace

void ComboBox::AddItem(std::string item) {
  items_.push_back(std::move(item));
  Changed();
}

int ComboBox::Find(std::string_view text) const {
  return static_cast<int>(std::ranges::find(items_, text) - items_.begin());
}

void ComboBox::RemoveItem(int index) {
  RequireItem(items_, index);
  items_.erase(items_.begin() + index);
  Changed();
}

void ComboBox::Clear() {
  items_.clear();
  text_.clear();
  Changed();
}

void ComboBox::Choose(int index) {
  RequireItem(items_, index);
  SetText(items_[static_cast<std::size_t>(index)]);
  Click();
}

}  // namespace tallyo
