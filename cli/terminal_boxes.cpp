#include "cli/terminal_boxes.h"

#include <unistd.h>

#include <ostream>
#include <string>
#include <utility>

#include "cli/safe_text.h"
#include "settings/names.h"

namespace tallyo {
namespace {

const char* Kind(const MessageBox& box) {
  if (box.buttons == BoxButtons::YesNo) {
    return "question";
  }
  return box.icon == BoxIcon::Critical ? "critical" : "information";
}

}  // namespace

void TerminalBoxes::BeginRound() {
  inRounds_ = true;
  shownBefore_ = std::exchange(shown_, {});
}

BoxAnswer TerminalBoxes::Ask(const MessageBox& box) {
  if (box.buttons == BoxButtons::Ok) {
    if (!SaidLately(box)) {
      Say(box);
    }
    return BoxAnswer::Ok;
  }
  Say(box);
  if (console_.options.answer) {
    return *console_.options.answer;
  }
  return console_.terminal >= 0 ? AskTerminal() : BoxAnswer::No;
}

bool TerminalBoxes::SaidLately(const MessageBox& box) {
  return inRounds_ && (!shown_.insert(box.text).second || shownBefore_.contains(box.text));
}

void TerminalBoxes::Say(const MessageBox& box) {
  const std::string title = box.title.empty() ? std::string(names::AppTitle) : box.title;
  console_.err << '[' << Kind(box) << "] " << OneLine(title) << ": " << SeveralLines(box.text)
               << '\n';
}

BoxAnswer TerminalBoxes::AskTerminal() {
  console_.err << "Yes or No? [No] " << std::flush;
  std::string line;
  char c = 0;
  while (pump_.Wait(console_.terminal, -1) && read(console_.terminal, &c, 1) == 1 && c != '\n') {
    line += c;
  }
  return line.starts_with('y') || line.starts_with('Y') ? BoxAnswer::Yes : BoxAnswer::No;
}

}  // namespace tallyo
