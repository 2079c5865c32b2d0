#include "cli/signal_pump.h"

#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <array>

namespace tallyo {

SignalPump::SignalPump() {
  sigemptyset(&signals_);
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    sigaddset(&signals_, signal);
  }
  pthread_sigmask(SIG_BLOCK, &signals_, &before_);
  file_ = signalfd(-1, &signals_, SFD_NONBLOCK | SFD_CLOEXEC);
}

SignalPump::~SignalPump() {
  // A signal that came too late asks for what happens anyway; it must not kill at the last moment.
  signalfd_siginfo info{};
  while (read(file_, &info, sizeof(info)) == static_cast<ssize_t>(sizeof(info))) {
  }
  close(file_);
  pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

bool SignalPump::Wait(int fileDescriptor, int milliseconds) {
  std::array<pollfd, 2> files = {
      {{.fd = file_, .events = POLLIN, .revents = 0},
       {.fd = fileDescriptor, .events = POLLIN, .revents = 0}}};  // a descriptor of -1 is ignored
  poll(files.data(), files.size(), milliseconds);
  Run();
  return files[1].revents != 0;
}

void SignalPump::RunPending() {
  signalfd_siginfo info{};
  if (read(file_, &info, sizeof(info)) == static_cast<ssize_t>(sizeof(info)) && handler_) {
    handler_();
  }
}

}  // namespace tallyo
