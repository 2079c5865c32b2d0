#pragma once

#include <string_view>

#include "text/dates.h"

namespace tallyo {

// The time of day, in seconds since midnight, as it is compared with LastCheckTime: rounded to
// single precision, since LastCheckTime is of single precision too.
[[nodiscard]] double ComparableNow(const LocalTime& now);

// The seconds between two refreshes, from the interval field's text, which is a number of hours.
// Throws RuntimeError where the number does not fit single precision.
[[nodiscard]] double RefreshIntervalSeconds(std::string_view hours);

}  // namespace tallyo
