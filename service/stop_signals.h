#pragma once

#include <csignal>

namespace tallyo::service {

// Holds SIGTERM, SIGINT and SIGHUP back from this thread, and from the threads it starts later, so
// that they can be waited for. SIGPIPE and SIGXFSZ are ignored: neither a visitor who goes away nor
// a file that may not grow is anything to die of.
class StopSignals {
 public:
  StopSignals();

  void Wait() const;

 private:
  sigset_t signals_{};
};

}  // namespace tallyo::service
