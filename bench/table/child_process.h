#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "bench/table/interruption.h"

namespace tallyo::bench {

struct Command {
  std::vector<std::string> words;  // the first one is the program's file, or is looked for
  std::vector<std::pair<std::string, std::string>> environment = {};  // besides the inherited one
  std::optional<int> processor = {};                                  // the only one it may use
};

// A process with both ends of its standard input and output here. What it says on standard error
// goes to a file and is quoted where it fails. All failures are std::runtime_errors.
class ChildProcess {
 public:
  // complaints: the file for standard error; several processes may share it.
  ChildProcess(const Interruption& interruption, const Command& command,
               std::filesystem::path complaints);
  // Asks the process to end and, where it does not within two seconds, ends it.
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  [[nodiscard]] pid_t Number() const { return number_; }

  void Say(std::string_view line);

  // The next line that the process prints, without its end.
  [[nodiscard]] std::string HearLine(std::chrono::seconds patience);

  // Ends its input. All that the process prints until it ends, which must be with 0.
  std::string HearToEnd(std::chrono::seconds patience);

 private:
  void CloseInput();
  void ReadMore(MonotonicTime until);
  [[nodiscard]] bool WaitForEnd(MonotonicTime until);
  [[noreturn]] void Fail(const std::string& what) const;

  const Interruption& interruption_;
  std::string name_;
  std::filesystem::path complaints_;
  pid_t number_ = -1;
  int ending_ = -1;  // becomes readable when the process ends
  int toInput_ = -1;
  int fromOutput_ = -1;
  std::string heard_;
  bool silent_ = false;  // its output is closed
  int status_ = -1;      // once it has ended
};

}  // namespace tallyo::bench
