#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/message_boxes.h"

namespace tallyo::test {

// Keeps every box and answers every question with NextAnswer.
class ScriptedBoxes final : public MessageBoxes {
 public:
  explicit ScriptedBoxes(EventPump& pump) : MessageBoxes(pump) {}

  BoxAnswer NextAnswer = BoxAnswer::No;
  std::function<void()> WhileOpen;  // runs while a box stands open

  [[nodiscard]] const std::vector<MessageBox>& Shown() const { return shown_; }
  [[nodiscard]] std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const MessageBox& box : shown_) {
      texts.push_back(box.text);
    }
    return texts;
  }

 protected:
  BoxAnswer Ask(const MessageBox& box) override {
    shown_.push_back(box);
    if (WhileOpen) {
      WhileOpen();
    }
    return box.buttons == BoxButtons::YesNo ? NextAnswer : BoxAnswer::Ok;
  }

 private:
  std::vector<MessageBox> shown_;
};

}  // namespace tallyo::test
