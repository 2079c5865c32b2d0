#pragma once

#include <filesystem>
#include <iosfwd>
#include <optional>
#include <string>

#include "app/program_options.h"

namespace tallyo {

// What the command line of the window program may leave open.
struct WindowDefaults {
  std::filesystem::path appDir;
  std::string serviceUrl;
};

// What a command line asks for: a start with these options, or an end with this status, what there
// was to say having been said.
struct WindowStart {
  std::optional<ProgramOptions> options;
  int exitStatus = 0;
};

// Reads the command line. --help and --version print to `out`; wrong usage prints to `err` and ends
// with 2.
[[nodiscard]] WindowStart ReadOptions(int argc, char** argv, const WindowDefaults& defaults,
                                      std::ostream& out, std::ostream& err);

}  // namespace tallyo
