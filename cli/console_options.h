#pragma once

#include <filesystem>
#include <iosfwd>
#include <optional>
#include <string>

#include "platform/clock.h"
#include "platform/message_boxes.h"

namespace tallyo {

// What stands before the command.
struct ConsoleOptions {
  std::filesystem::path appDir;
  std::string serviceBaseUrl;
  std::optional<BoxAnswer> answer;  // to every question; none: the terminal is asked
  bool json = false;
};

// How a command ends.
enum class ExitStatus { Done = 0, Refused = 1, WrongUsage = 2 };

// Where a command reads and writes, and what it is told.
struct Console {
  const Clock& clock;
  std::ostream& out;
  std::ostream& err;
  int terminal;  // file descriptor that answers questions; -1 where there is none
  ConsoleOptions options;
};

// One plain line for the person, on standard error.
ExitStatus Refuse(Console& console, const std::string& why);

}  // namespace tallyo
