#pragma once

#include <filesystem>

namespace tallyo {

// The desktop around the program.
class Shell {
 public:
  virtual ~Shell() = default;

  // Opens a document with the program that the person uses for its kind. A failure shows nothing.
  virtual void Open(const std::filesystem::path& document) = 0;

  // Has the program started when the person logs on, or no more. A failure shows nothing.
  virtual void RunAtLogon(bool run) = 0;
};

}  // namespace tallyo
