#include "tests/force/killed_run.h"

#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <ctime>
#include <stop_token>
#include <thread>

namespace tallyo::force {
namespace {

constexpr std::array kCalls = {
    SYS_write,     SYS_pwrite64, SYS_writev,   SYS_fsync,     SYS_fdatasync, SYS_sync_file_range,
    SYS_ftruncate, SYS_renameat, SYS_unlinkat, SYS_renameat2, SYS_mkdirat,   SYS_fchmod,
    SYS_flock,     SYS_sendto,   SYS_recvfrom, SYS_connect,
#ifdef SYS_rename  // newer kinds of processors have only the calls with "at"
    SYS_rename,    SYS_unlink,   SYS_mkdir,
#endif
};

bool Matters(const __ptrace_syscall_info& info) {
  const auto number = static_cast<long>(info.entry.nr);
  if (number == SYS_openat) return (info.entry.args[2] & (O_CREAT | O_TRUNC)) != 0;
  return std::ranges::find(kCalls, number) != kCalls.end();
}

void Sleep(std::int64_t microseconds) {
  const timespec time{.tv_sec = microseconds / 1'000'000,
                      .tv_nsec = microseconds % 1'000'000 * 1000};
  ::clock_nanosleep(CLOCK_MONOTONIC, 0, &time, nullptr);
}

// Stops the program at every call until the moment has come or the program has ended.
class Tracer {
 public:
  Tracer(pid_t program, std::int64_t lastMoment) : program_(program), lastMoment_(lastMoment) {}

  // The status of waitpid at the end.
  int Follow() {
    int status = 0;
    ::waitpid(program_, &status, 0);
    ::ptrace(PTRACE_SETOPTIONS, program_, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    int signal = 0;
    while (WIFSTOPPED(status)) {
      signal = WSTOPSIG(status);
      if (signal == (SIGTRAP | 0x80)) {
        PassCall();
        signal = 0;
      }
      ::ptrace(PTRACE_SYSCALL, program_, nullptr, signal == SIGTRAP ? 0 : signal);
      ::waitpid(program_, &status, 0);
    }
    return status;
  }

  [[nodiscard]] std::int64_t Moments() const { return moments_; }

 private:
  void PassCall() {
    __ptrace_syscall_info info{};
    ::ptrace(PTRACE_GET_SYSCALL_INFO, program_, sizeof info, &info);
    if (info.op == PTRACE_SYSCALL_INFO_ENTRY) matters_ = Matters(info);
    if (matters_ && ++moments_ == lastMoment_) ::kill(program_, SIGKILL);
  }

  pid_t program_;
  std::int64_t lastMoment_;
  std::int64_t moments_ = 0;
  bool matters_ = false;
};

}  // namespace

KilledRun RunAndKill(const std::vector<std::string>& words, const KillPoint& point,
                     const std::function<bool()>& hasDoneItsWork) {
  const bool traced = point.kind == KillPoint::Kind::Moment;
  const auto begin = std::chrono::steady_clock::now();
  ChildProcess program(words, traced ? Traced::Yes : Traced::No);
  std::jthread ender;
  if (hasDoneItsWork) {
    ender = std::jthread([&](const std::stop_token& stop) {
      while (!stop.stop_requested() && !hasDoneItsWork()) Sleep(5000);
      if (!stop.stop_requested()) program.Signal(SIGTERM);
    });
  }
  Tracer tracer(program.Id(), point.count);
  int status = 0;
  if (traced) {
    status = tracer.Follow();
  } else {
    Sleep(point.count);
    program.Signal(SIGKILL);
    ::waitpid(program.Id(), &status, 0);
  }
  ender = {};
  KilledRun run;
  run.ending = program.Ended(status);
  run.killed = run.ending.signal == SIGKILL;
  run.moments = tracer.Moments();
  run.microseconds = std::chrono::duration_cast<std::chrono::microseconds>(
                         std::chrono::steady_clock::now() - begin)
                         .count();
  return run;
}

}  // namespace tallyo::force
