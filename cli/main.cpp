#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "cli/command_line.h"
#include "platform/system_clock.h"

namespace {

// The folder of the program file, unless the program was built for another one.
std::string DefaultAppDir() {
  constexpr const char* kBuiltFor = TALLYO_APP_DIR;
  if (*kBuiltFor != '\0') {
    return kBuiltFor;
  }
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).parent_path().string();
}

}  // namespace

int main(int argc, char** argv) {
  // A reader that goes away must not keep the program from saving; printing then fails by itself.
  std::signal(SIGPIPE, SIG_IGN);
  const tallyo::SystemClock clock;
  const bool person = isatty(STDIN_FILENO) != 0 && isatty(STDERR_FILENO) != 0;
  return tallyo::RunCommandLine(std::vector<std::string>(argv + 1, argv + argc),
                                {.clock = clock,
                                 .out = std::cout,
                                 .err = std::cerr,
                                 .terminal = person ? STDIN_FILENO : -1,
                                 .defaultAppDir = DefaultAppDir(),
                                 .defaultServiceUrl = TALLYO_SERVICE_BASE_URL,
                                 .outDescriptor = STDOUT_FILENO});
}
