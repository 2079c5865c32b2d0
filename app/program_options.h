#pragma once

#include <filesystem>
#include <string>

namespace tallyo {

struct ProgramOptions {
  std::filesystem::path appDir;
  std::string serviceBaseUrl;  // ends with "/"

  // What the settings of these names mean where they are absent: off in the window, on where every
  // command is a session of its own.
  bool appendAfterLast = false;
  bool countOnce = false;
};

}  // namespace tallyo
