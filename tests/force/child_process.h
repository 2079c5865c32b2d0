#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/file_descriptor.h"

namespace tallyo::force {

// One of the programs that were built, by its name.
[[nodiscard]] std::string ProgramFile(const std::string& name);
[[nodiscard]] bool IsBuilt(const std::string& name);

enum class Traced { No, Yes };

// How a process ended.
struct Ending {
  int exitStatus = -1;  // -1: ended by a signal
  int signal = 0;
  std::string out;
  std::string err;

  // What went wrong, for a person; "" for an end with status 0 and without a sanitizer's report.
  [[nodiscard]] std::string Complaint() const;
};

// Whether a sanitizer has reported something in what a program said.
[[nodiscard]] bool HoldsReport(const std::string& err);

// A program in a process of its own, killed at the end of the object's life where it still runs. It
// sees no proxy, no desktop and no display.
class ChildProcess {
 public:
  // words: the program's file and its arguments. A traced one stops at its first instruction.
  explicit ChildProcess(const std::vector<std::string>& words, Traced traced = Traced::No);
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  [[nodiscard]] pid_t Id() const { return id_; }
  void Signal(int number) const;
  [[nodiscard]] bool Runs() const;

  // Waits for a line on its standard output, without its end.
  [[nodiscard]] std::string ReadLine();

  // Waits for its end. `waitStatus` is that of waitpid where somebody has waited for it already.
  [[nodiscard]] Ending Wait();
  [[nodiscard]] Ending Ended(int waitStatus);

 private:
  pid_t id_ = -1;
  bool reaped_ = false;
  std::optional<FileDescriptor> out_;
  FileDescriptor err_;
  std::string read_;
};

// Runs a program to its end.
[[nodiscard]] Ending RunToEnd(const std::vector<std::string>& words);

}  // namespace tallyo::force
