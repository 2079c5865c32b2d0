#pragma once

#include "form/control.h"

namespace tallyo {

// Fires every interval while it is enabled; whoever runs the program's events calls Tick.
class Timer : public Control {
 public:
  EventHandler OnTimer;

  [[nodiscard]] int IntervalMilliseconds() const { return intervalMilliseconds_; }
  void SetIntervalMilliseconds(int interval) { Assign(intervalMilliseconds_, interval); }

  void Tick() const {
    if (Enabled()) {
      Fire(OnTimer);
    }
  }

 private:
  int intervalMilliseconds_ = 500;
};

}  // namespace tallyo
