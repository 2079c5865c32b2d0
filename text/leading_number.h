#pragma once

#include <string_view>

namespace tallyo {

// The number at the start of a text: blanks (0x20) are skipped, then one optional sign directly
// before the digits, then digits with at most one point; everything behind is ignored. No exponent,
// no hexadecimal, no group separators. Without a digit the result is 0; beyond the range of a
// double it is the largest double with that sign; it is never -0.
[[nodiscard]] double LeadingNumber(std::string_view text);

// The same number for a text that must be nothing but a number between blanks.
// Throws RuntimeError for any other text, the empty one included.
[[nodiscard]] double StrictNumber(std::string_view text);

}  // namespace tallyo
