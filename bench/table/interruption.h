#pragma once

#include <chrono>

namespace tallyo::bench {

using MonotonicTime = std::chrono::steady_clock::time_point;

// Thrown out of every wait once the person has asked for the end.
class Interrupted {};

// Holds SIGINT, SIGTERM and SIGHUP back, so that they end the measuring only where it waits: what
// is on the stack then puts its processes and files away.
class Interruption {
 public:
  Interruption();
  ~Interruption();
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;

  // Waits until something can be read; false where the time comes before that. Throws Interrupted.
  [[nodiscard]] bool WaitReadable(int descriptor, MonotonicTime until) const;

  void Pause(std::chrono::duration<double> time) const;

 private:
  int signals_;
};

}  // namespace tallyo::bench
