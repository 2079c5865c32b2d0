#pragma once

#include <string>
#include <vector>

#include "form/control.h"

namespace tallyo {

// Lines with a check box each, counted from 0.
class CheckList : public Control {
 public:
  struct Line {
    std::string text;
    bool checked = false;
  };

  [[nodiscard]] const std::vector<Line>& Lines() const { return lines_; }
  void AddLine(std::string text) {
    lines_.push_back({std::move(text), false});
    Changed();
  }
  void Clear() {
    lines_.clear();
    Changed();
  }
  // The line must be there.
  void Check(std::size_t line, bool checked) { Assign(lines_.at(line).checked, checked); }

  [[nodiscard]] const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption) { Assign(caption_, std::move(caption)); }

 private:
  std::vector<Line> lines_;
  std::string caption_;
};

}  // namespace tallyo
