#pragma once

#include <filesystem>
#include <string>
#include <system_error>

#include "text/runtime_error.h"

namespace tallyo {

// Throws the RuntimeError of something that could not be done with a path. error: an errno.
[[noreturn]] inline void FailWith(const char* action, const std::filesystem::path& path,
                                  int error) {
  throw RuntimeError(std::string(action) + " " + path.c_str() + ": " +
                     std::generic_category().message(error));
}

}  // namespace tallyo
