#include "text/integers.h"

#include <cmath>
#include <limits>

#include "text/runtime_error.h"

namespace tallyo {
namespace {

double RoundHalfToEven(double value) {
  const double below = std::floor(value);
  const double fraction = value - below;
  if (fraction < 0.5) {
    return below;
  }
  if (fraction > 0.5) {
    return below + 1;
  }
  return std::fmod(below, 2) == 0 ? below : below + 1;
}

template <typename Integer>
Integer Rounded(double value) {
  const double rounded = RoundHalfToEven(value);
  // Written so that a NaN fails too.
  if (!(rounded >= std::numeric_limits<Integer>::min() &&
        rounded <= std::numeric_limits<Integer>::max())) {
    throw RuntimeError("overflow: a number that does not fit its integer");
  }
  return static_cast<Integer>(rounded);
}

}  // namespace

std::int16_t ToInt16(double value) { return Rounded<std::int16_t>(value); }

std::int32_t ToInt32(double value) { return Rounded<std::int32_t>(value); }

float ToSingle(double value) {
  // Below this, half a place past the largest single, a number still rounds to that.
  constexpr double kLimit = 0x1.ffffffp127;
  if (!(std::fabs(value) < kLimit)) {
    throw RuntimeError("overflow: a number that does not fit single precision");
  }
  return static_cast<float>(value);
}

}  // namespace tallyo
