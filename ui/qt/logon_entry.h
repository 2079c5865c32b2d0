#pragma once

#include <filesystem>
#include <string>

namespace tallyo {

// The entry that makes the desktop start the program at logon.
class LogonEntry {
 public:
  // program: the program file; appDir: the folder it shall work on.
  LogonEntry(std::filesystem::path program, std::filesystem::path appDir);

  // Writes the entry among the person's own, or removes it. A failure changes nothing.
  void Set(bool run) const;

  // The entry as it is written.
  [[nodiscard]] std::string Text() const;

  // "tallyo.desktop" in the person's folder of such entries.
  [[nodiscard]] static std::filesystem::path File();

 private:
  std::filesystem::path program_;
  std::filesystem::path appDir_;
};

}  // namespace tallyo
