#pragma once

#include "text/dates.h"

namespace tallyo {

// What time it is here. One reading holds date and time of the same moment.
class Clock {
 public:
  virtual ~Clock() = default;
  [[nodiscard]] virtual LocalTime Now() const = 0;
};

}  // namespace tallyo
