#include "ui/qt/signal_watch.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <utility>

namespace tallyo {
namespace {

constexpr std::array kSignals = {SIGTERM, SIGINT, SIGHUP};

// A signal handler can reach nothing but this. Holding the signals back and reading them from a
// descriptor would need no such thing, but every browser and viewer that is started would be held
// back as well.
std::atomic<int> wakeUp = -1;

extern "C" void WakeUp(int /*signal*/) {
  const int before = errno;
  const char byte = 0;
  [[maybe_unused]] const ssize_t written = write(wakeUp.load(), &byte, 1);
  errno = before;
}

void Handle(void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  sigemptyset(&action.sa_mask);
  for (const int signal : kSignals) {
    sigaction(signal, &action, nullptr);
  }
}

}  // namespace

SignalWatch::SignalWatch(std::function<void()> onSignal) {
  if (pipe2(pipe_.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
    return;
  }
  notifier_ = std::make_unique<QSocketNotifier>(pipe_[0], QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                   [this, handler = std::move(onSignal)] {
                     char byte = 0;
                     while (read(pipe_[0], &byte, 1) == 1) {
                     }
                     handler();
                   });
  wakeUp = pipe_[1];
  Handle(WakeUp);
}

SignalWatch::~SignalWatch() {
  // A signal that came too late asks for what happens anyway; it must not kill at the last moment.
  Handle(SIG_IGN);
  for (const int end : pipe_) {
    if (end >= 0) {
      close(end);
    }
  }
}

}  // namespace tallyo
