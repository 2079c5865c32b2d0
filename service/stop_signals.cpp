#include "service/stop_signals.h"

#include <csignal>
#include <initializer_list>

namespace tallyo::service {

StopSignals::StopSignals() {
  sigemptyset(&signals_);
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) sigaddset(&signals_, signal);
  pthread_sigmask(SIG_BLOCK, &signals_, nullptr);
  for (const int signal : {SIGPIPE, SIGXFSZ}) std::signal(signal, SIG_IGN);
}

void StopSignals::Wait() const {
  int signal = 0;
  sigwait(&signals_, &signal);
}

}  // namespace tallyo::service
