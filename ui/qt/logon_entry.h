#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tallyo {

// The entry that makes the desktop start the program at logon.
class LogonEntry {
 public:
  // command: the program file and its arguments, whatever characters they hold.
  explicit LogonEntry(std::vector<std::string> command);

  // Writes the entry among the person's own unless it is there, or removes it. A failure changes
  // nothing.
  void Set(bool run) const;

  // The entry as it is written.
  [[nodiscard]] std::string Text() const;

  // "tallyo.desktop" in the person's folder of such entries.
  [[nodiscard]] static std::filesystem::path File();

 private:
  [[nodiscard]] bool IsThere() const;
  [[nodiscard]] std::string CommandLine() const;

  std::vector<std::string> command_;
};

}  // namespace tallyo
