#pragma once

#include "cli/console_options.h"
#include "cli/signal_pump.h"
#include "platform/message_boxes.h"

namespace tallyo {

// Message boxes as lines on standard error: "[information] Tallyo: text". A question is answered by
// the console's options, or by the person at the terminal, or with No where there is none.
class TerminalBoxes final : public MessageBoxes {
 public:
  TerminalBoxes(const Console& console, SignalPump& pump)
      : MessageBoxes(pump), console_(console), pump_(pump) {}

 protected:
  BoxAnswer Ask(const MessageBox& box) override;

 private:
  [[nodiscard]] BoxAnswer AskTerminal();

  const Console& console_;
  SignalPump& pump_;
};

}  // namespace tallyo
