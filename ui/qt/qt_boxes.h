#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>

#include "platform/message_boxes.h"

namespace tallyo {

// Message boxes over the window. The end of the program closes an open one.
class QtBoxes final : public MessageBoxes {
 public:
  explicit QtBoxes(EventPump& pump) : MessageBoxes(pump) {}

  // Runs when a box was closed.
  std::function<void()> OnClosed;

  // The window that boxes stand over from now on.
  void StandOver(QWidget& window) { window_ = &window; }

 protected:
  BoxAnswer Ask(const MessageBox& box) override;

 private:
  QPointer<QWidget> window_;
};

}  // namespace tallyo
