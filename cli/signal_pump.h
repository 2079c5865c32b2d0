#pragma once

#include <csignal>
#include <functional>
#include <utility>

#include "platform/event_pump.h"

namespace tallyo {

// The events of a program on a terminal: the signals that ask it to end (SIGTERM, SIGINT, SIGHUP).
// While it lives these signals wait until it looks for them.
class SignalPump final : public EventPump {
 public:
  SignalPump();
  ~SignalPump() override;
  SignalPump(const SignalPump&) = delete;
  SignalPump& operator=(const SignalPump&) = delete;

  // What a signal does; it is expected to end the program.
  void OnSignal(std::function<void()> handler) { handler_ = std::move(handler); }

  // Waits until a signal comes, a line can be read from the file descriptor (-1: none), or the
  // time is over (-1: no limit), and runs what came. True where there is something to read.
  bool Wait(int fileDescriptor, int milliseconds);

 protected:
  void RunPending() override;

 private:
  sigset_t signals_{};
  sigset_t before_{};
  int file_ = -1;
  std::function<void()> handler_;
};

}  // namespace tallyo
