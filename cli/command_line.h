#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "platform/clock.h"

namespace tallyo {

// What the console program is started with, besides its words.
struct ConsoleHost {
  const Clock& clock;
  std::ostream& out;
  std::ostream& err;
  int terminal = -1;              // file descriptor that answers questions; -1: none
  std::string defaultAppDir;      // where --app-dir is not given
  std::string defaultServiceUrl;  // where --service-url is not given
  int outDescriptor = -1;         // file descriptor behind `out`; -1: none
};

// Reads the words behind the program's name, runs the command, and returns its exit status.
int RunCommandLine(const std::vector<std::string>& words, const ConsoleHost& host);

}  // namespace tallyo
