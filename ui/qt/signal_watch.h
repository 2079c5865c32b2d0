#pragma once

#include <QSocketNotifier>
#include <array>
#include <functional>
#include <memory>

namespace tallyo {

// Brings the signals that ask a program to end (SIGTERM, SIGINT, SIGHUP) into its event loop. While
// it lives they do nothing else. One at a time. Programs started meanwhile get these signals as
// ever.
class SignalWatch {
 public:
  explicit SignalWatch(std::function<void()> onSignal);
  ~SignalWatch();
  SignalWatch(const SignalWatch&) = delete;
  SignalWatch& operator=(const SignalWatch&) = delete;

 private:
  std::array<int, 2> pipe_{-1, -1};
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace tallyo
