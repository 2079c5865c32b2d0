#pragma once

#include "platform/clock.h"

namespace tallyo {

// The machine's clock in the time zone of the machine, or of TZ where that is set.
class SystemClock final : public Clock {
 public:
  [[nodiscard]] LocalTime Now() const override;
};

}  // namespace tallyo
