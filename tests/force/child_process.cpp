#include "tests/force/child_process.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace tallyo::force {
namespace {

namespace fs = std::filesystem;

int Checked(int result, const char* what) {
  if (result < 0) throw std::system_error(errno, std::generic_category(), what);
  return result;
}

// Only what may be done between fork and exec.
[[noreturn]] void Become(const std::vector<char*>& words, int out, int err, Traced traced) {
  ::dup2(out, STDOUT_FILENO);
  ::dup2(err, STDERR_FILENO);
  ::dup2(::open("/dev/null", O_RDONLY | O_CLOEXEC), STDIN_FILENO);
  if (traced == Traced::Yes) ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
  ::execv(words.front(), words.data());
  ::_exit(127);
}

// For all processes that are started here; a leak checker cannot work in a traced one.
void SetEnvironment(Traced traced) {
  ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  ::setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1);
  ::setenv("no_proxy", "*", 1);
  ::setenv("ASAN_OPTIONS", traced == Traced::Yes ? "detect_leaks=0" : "", 1);
}

std::string WholeOf(int descriptor) {
  std::string text(static_cast<std::size_t>(::lseek(descriptor, 0, SEEK_END)), '\0');
  const ssize_t count = ::pread(descriptor, text.data(), text.size(), 0);
  text.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
  return text;
}

}  // namespace

std::string ProgramFile(const std::string& name) {
  return fs::read_symlink("/proc/self/exe").parent_path() / name;
}

bool IsBuilt(const std::string& name) { return fs::exists(ProgramFile(name)); }

bool HoldsReport(const std::string& err) {
  for (const char* mark : {"Sanitizer", "runtime error:"}) {
    if (err.find(mark) != std::string::npos) return true;
  }
  return false;
}

std::string Ending::Complaint() const {
  if (exitStatus == 0 && !HoldsReport(err)) return "";
  return "ended with status " + std::to_string(exitStatus) + ", signal " + std::to_string(signal) +
         ": " + err;
}

ChildProcess::ChildProcess(const std::vector<std::string>& words, Traced traced)
    : err_(Checked(::memfd_create("stderr", MFD_CLOEXEC), "memfd_create")) {
  SetEnvironment(traced);
  std::array<int, 2> pipe{};
  Checked(::pipe2(pipe.data(), O_CLOEXEC), "pipe2");
  out_.emplace(pipe[0]);
  const FileDescriptor writing(pipe[1]);
  std::vector<char*> raw;
  for (const std::string& word : words) raw.push_back(const_cast<char*>(word.c_str()));
  raw.push_back(nullptr);
  id_ = Checked(::fork(), "fork");
  if (id_ == 0) Become(raw, writing.Number(), err_.Number(), traced);
}

ChildProcess::~ChildProcess() {
  if (reaped_) return;
  ::kill(id_, SIGKILL);
  ::waitpid(id_, nullptr, 0);
}

void ChildProcess::Signal(int number) const {
  if (!reaped_) ::kill(id_, number);
}

bool ChildProcess::Runs() const {
  siginfo_t ended{};
  return ::waitid(P_PID, static_cast<id_t>(id_), &ended, WEXITED | WNOHANG | WNOWAIT) == 0 &&
         ended.si_pid == 0;
}

std::string ChildProcess::ReadLine() {
  std::array<char, 256> piece{};
  while (read_.find('\n') == std::string::npos) {
    const ssize_t count = ::read(out_->Number(), piece.data(), piece.size());
    if (count <= 0) break;
    read_.append(piece.data(), static_cast<std::size_t>(count));
  }
  return read_.substr(0, read_.find('\n'));
}

Ending ChildProcess::Wait() {
  int status = 0;
  while (::waitpid(id_, &status, 0) < 0 && errno == EINTR) {
  }
  return Ended(status);
}

Ending ChildProcess::Ended(int waitStatus) {
  reaped_ = true;
  Ending ending;
  if (WIFEXITED(waitStatus)) ending.exitStatus = WEXITSTATUS(waitStatus);
  if (WIFSIGNALED(waitStatus)) ending.signal = WTERMSIG(waitStatus);
  std::array<char, 4096> piece{};
  for (;;) {
    const ssize_t count = ::read(out_->Number(), piece.data(), piece.size());
    if (count <= 0) break;
    read_.append(piece.data(), static_cast<std::size_t>(count));
  }
  ending.out = read_;
  ending.err = WholeOf(err_.Number());
  return ending;
}

Ending RunToEnd(const std::vector<std::string>& words) { return ChildProcess(words).Wait(); }

}  // namespace tallyo::force
