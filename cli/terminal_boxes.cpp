#include "cli/terminal_boxes.h"

#include <unistd.h>

#include <ostream>
#include <string>

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

BoxAnswer TerminalBoxes::Ask(const MessageBox& box) {
  const std::string title = box.title.empty() ? std::string(names::AppTitle) : box.title;
  console_.err << '[' << Kind(box) << "] " << OneLine(title) << ": " << SeveralLines(box.text)
               << '\n';
  if (box.buttons == BoxButtons::Ok) {
    return BoxAnswer::Ok;
  }
  if (console_.options.answer) {
    return *console_.options.answer;
  }
  return console_.terminal >= 0 ? AskTerminal() : BoxAnswer::No;
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
