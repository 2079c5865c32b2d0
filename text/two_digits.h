#pragma once

#include <string>

namespace tallyo {

// A whole number with at least two digits, zero padded, its sign in front: 00, 07, 100, -05.
[[nodiscard]] std::string TwoDigits(int value);

}  // namespace tallyo
