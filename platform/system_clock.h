#pragma once

#include <ctime>
#include <optional>

#include "platform/clock.h"

namespace tallyo {

// The machine's clock in the time zone of the machine, or of TZ where that is set; a change of
// either shows with the next minute. All calls come from one thread.
class SystemClock final : public Clock {
 public:
  [[nodiscard]] LocalTime Now() const override;

 private:
  // The last second that was read, and when: what asks often asks often within a minute of it.
  mutable LocalTime last_;
  mutable std::optional<std::time_t> readAt_;
};

}  // namespace tallyo
