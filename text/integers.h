#pragma once

#include <cstdint>

namespace tallyo {

// A number rounded half to even to 16 or 32 bits. Throws RuntimeError where the rounded number
// does not fit.
[[nodiscard]] std::int16_t ToInt16(double value);
[[nodiscard]] std::int32_t ToInt32(double value);

// A number rounded to single precision. Throws RuntimeError where it does not fit.
[[nodiscard]] float ToSingle(double value);

}  // namespace tallyo
