#pragma once

#include <set>
#include <string>

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

  // Begins a round of what is done over and over. From the first round on, a box that asks nothing
  // is not said again in the same round, nor in the one behind a round that showed it.
  void BeginRound();

 protected:
  BoxAnswer Ask(const MessageBox& box) override;

 private:
  [[nodiscard]] bool SaidLately(const MessageBox& box);
  void Say(const MessageBox& box);
  [[nodiscard]] BoxAnswer AskTerminal();

  const Console& console_;
  SignalPump& pump_;
  bool inRounds_ = false;
  std::set<std::string> shown_;  // the texts of this round, and of the one before
  std::set<std::string> shownBefore_;
};

}  // namespace tallyo
