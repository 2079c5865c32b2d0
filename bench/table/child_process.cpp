#include "bench/table/child_process.h"

#include <fcntl.h>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <system_error>

namespace tallyo::bench {
namespace {

using std::chrono::steady_clock;
constexpr std::chrono::seconds kPatienceAtEnd{2};
constexpr std::size_t kLongestQuote = 300;

std::array<int, 2> Pipe() {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
    throw std::system_error(errno, std::generic_category(), "pipe");
  }
  return ends;
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (std::string& text : texts) {
    pointers.push_back(text.data());
  }
  pointers.push_back(nullptr);
  return pointers;
}

// The inherited environment, with the command's own variables before those that they replace.
std::vector<std::string> Environment(const Command& command) {
  std::vector<std::string> all;
  for (const auto& [name, value] : command.environment) {
    all.push_back(name);
    all.back().append("=").append(value);
  }
  for (char** inherited = environ; *inherited != nullptr; ++inherited) {
    const std::string_view variable = *inherited;
    bool replaced = false;
    for (const auto& own : command.environment) {
      replaced = replaced || (variable.starts_with(own.first) &&
                              variable.substr(own.first.size()).starts_with("="));
    }
    if (!replaced) {
      all.emplace_back(variable);
    }
  }
  return all;
}

// What the new process does before it becomes the program. It ends with the measuring, however that
// ends.
void PrepareChild(std::optional<int> processor) {
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  sigset_t none;
  sigemptyset(&none);
  pthread_sigmask(SIG_SETMASK, &none, nullptr);
  std::signal(SIGPIPE, SIG_DFL);
  if (processor) {
    cpu_set_t only;
    CPU_ZERO(&only);
    CPU_SET(static_cast<std::size_t>(*processor), &only);
    ::sched_setaffinity(0, sizeof only, &only);
  }
}

}  // namespace

ChildProcess::ChildProcess(const Interruption& interruption, const Command& command,
                           std::filesystem::path complaints)
    : interruption_(interruption),
      name_(std::filesystem::path(command.words.front()).filename().string()),
      complaints_(std::move(complaints)) {
  std::vector<std::string> words = command.words;
  std::vector<std::string> variables = Environment(command);
  const std::vector<char*> arguments = Pointers(words);
  const std::vector<char*> environment = Pointers(variables);
  const std::array<int, 2> input = Pipe();
  const std::array<int, 2> output = Pipe();
  const int errors = ::open(complaints_.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
  number_ = ::fork();
  if (number_ == 0) {
    ::dup2(input[0], STDIN_FILENO);
    ::dup2(output[1], STDOUT_FILENO);
    ::dup2(errors, STDERR_FILENO);
    PrepareChild(command.processor);
    ::execvpe(arguments[0], arguments.data(), environment.data());
    ::_exit(127);
  }
  for (const int end : {input[0], output[1], errors}) {
    ::close(end);
  }
  toInput_ = input[1];
  fromOutput_ = output[0];
  ending_ = number_ < 0 ? -1 : static_cast<int>(::syscall(SYS_pidfd_open, number_, 0));
  if (ending_ < 0) {
    Fail("could not be started");
  }
}

ChildProcess::~ChildProcess() {
  CloseInput();
  if (status_ < 0 && number_ > 0) {
    ::kill(number_, SIGTERM);
    try {
      if (!WaitForEnd(steady_clock::now() + kPatienceAtEnd)) {
        ::kill(number_, SIGKILL);
      }
    } catch (const Interrupted&) {
      ::kill(number_, SIGKILL);
    }
    if (status_ < 0) {
      ::waitpid(number_, nullptr, 0);
    }
  }
  ::close(fromOutput_);
  ::close(ending_);
}

void ChildProcess::Say(std::string_view line) {
  const std::string text = std::string(line) + "\n";
  if (::write(toInput_, text.data(), text.size()) != static_cast<ssize_t>(text.size())) {
    Fail("takes no more input");
  }
}

std::string ChildProcess::HearLine(std::chrono::seconds patience) {
  const MonotonicTime until = steady_clock::now() + patience;
  std::size_t end = 0;
  while ((end = heard_.find('\n')) == std::string::npos) {
    if (silent_) {
      Fail("ended early");
    }
    ReadMore(until);
  }
  std::string line = heard_.substr(0, end);
  heard_.erase(0, end + 1);
  return line;
}

std::string ChildProcess::HearToEnd(std::chrono::seconds patience) {
  CloseInput();
  const MonotonicTime until = steady_clock::now() + patience;
  while (!silent_) {
    ReadMore(until);
  }
  if (!WaitForEnd(until)) {
    Fail("does not end");
  }
  if (!WIFEXITED(status_) || WEXITSTATUS(status_) != 0) {
    Fail("failed");
  }
  return std::exchange(heard_, {});
}

void ChildProcess::CloseInput() {
  if (toInput_ >= 0) {
    ::close(std::exchange(toInput_, -1));
  }
}

void ChildProcess::ReadMore(MonotonicTime until) {
  if (!interruption_.WaitReadable(fromOutput_, until)) {
    Fail("says nothing");
  }
  std::array<char, 65536> buffer{};
  const ssize_t size = ::read(fromOutput_, buffer.data(), buffer.size());
  silent_ = size <= 0;
  heard_.append(buffer.data(), size > 0 ? static_cast<std::size_t>(size) : 0);
}

bool ChildProcess::WaitForEnd(MonotonicTime until) {
  if (status_ < 0 && interruption_.WaitReadable(ending_, until)) {
    ::waitpid(number_, &status_, 0);
  }
  return status_ >= 0;
}

void ChildProcess::Fail(const std::string& what) const {
  std::ifstream file(complaints_);
  std::ostringstream said;
  said << file.rdbuf();
  std::string quote = said.str();
  while (quote.ends_with('\n')) {
    quote.pop_back();
  }
  if (quote.size() > kLongestQuote) {
    quote = "..." + quote.substr(quote.size() - kLongestQuote);
  }
  throw std::runtime_error(name_ + " " + what + (quote.empty() ? "" : ": " + quote));
}

}  // namespace tallyo::bench
