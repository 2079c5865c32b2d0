#pragma once

#include <filesystem>

namespace tallyo {

// The desktop around the program.
class Shell {
 public:
  virtual ~Shell() = default;

  // Opens a document with the program that the person uses for its kind. A failure shows nothing.
  virtual void Open(const std::filesystem::path& document) = 0;
};

}  // namespace tallyo
