#pragma once

#include <string>

namespace tallyo {

// A number as positional decimal text: 15 significant digits, trailing zeros cut, "." as the
// point, never an exponent, never "-0". Throws RuntimeError for what is not finite.
[[nodiscard]] std::string DecimalText(double value);

// The same for a single-precision number, with 7 significant digits.
[[nodiscard]] std::string SingleDecimalText(float value);

// The decimal text with a sign place in front (a blank, or "-") and without the zero before the
// point: " 1", " .25", "-.25".
[[nodiscard]] std::string SignPlaceText(double value);

}  // namespace tallyo
