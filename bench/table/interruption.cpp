#include "bench/table/interruption.h"

#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <system_error>

namespace tallyo::bench {

Interruption::Interruption() {
  sigset_t ending;
  sigemptyset(&ending);
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    sigaddset(&ending, number);
  }
  pthread_sigmask(SIG_BLOCK, &ending, nullptr);
  signals_ = ::signalfd(-1, &ending, SFD_CLOEXEC);
  if (signals_ < 0) {
    throw std::system_error(errno, std::generic_category(), "signalfd");
  }
}

Interruption::~Interruption() { ::close(signals_); }

bool Interruption::WaitReadable(int descriptor, MonotonicTime until) const {
  using std::chrono::milliseconds;
  std::array<pollfd, 2> waiting = {pollfd{signals_, POLLIN, 0}, pollfd{descriptor, POLLIN, 0}};
  for (;;) {
    const auto left =
        std::chrono::ceil<milliseconds>(until - std::chrono::steady_clock::now()).count();
    const auto patience = static_cast<int>(std::clamp<milliseconds::rep>(left, 0, 1'000'000));
    const int ready = ::poll(waiting.data(), waiting.size(), patience);
    if (ready > 0 && waiting[0].revents != 0) {
      // What is put away now may wait in its turn; a signal that is still there interrupts again.
      signalfd_siginfo taken{};
      [[maybe_unused]] const ssize_t size = ::read(signals_, &taken, sizeof taken);
      throw Interrupted();
    }
    if (ready > 0 || left <= 0) {
      return ready > 0;
    }
  }
}

void Interruption::Pause(std::chrono::duration<double> time) const {
  constexpr int kNothing = -1;  // poll passes over it
  const auto until = std::chrono::steady_clock::now() +
                     std::chrono::duration_cast<std::chrono::steady_clock::duration>(time);
  static_cast<void>(WaitReadable(kNothing, until));
}

}  // namespace tallyo::bench
