#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "form/control.h"

namespace tallyo {

// A list of items and a text of its own. Adding and removing items never changes the text.
class ComboBox : public Control {
 public:
  EventHandler OnClick;

  [[nodiscard]] const std::vector<std::string>& Items() const { return items_; }
  [[nodiscard]] int Count() const { return static_cast<int>(items_.size()); }
  void AddItem(std::string item);

  // The position of the first item that equals the text, from 0; the item count where none does.
  [[nodiscard]] int Find(std::string_view text) const;

  // Throws RuntimeError for an item that is not there; so does Choose.
  void RemoveItem(int index);

  // Empties the items and the text.
  void Clear();

  [[nodiscard]] const std::string& Text() const { return text_; }
  void SetText(std::string text) { Assign(text_, std::move(text)); }

  [[nodiscard]] const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption) { Assign(caption_, std::move(caption)); }

  // The person's choice of an item: sets the text and runs the click.
  void Choose(int index);
  void Click() const { Fire(OnClick); }

 private:
  std::vector<std::string> items_;
  std::string text_;
  std::string caption_;
};

}  // namespace tallyo
