#include "text/decimal_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "text/runtime_error.h"

namespace tallyo {
namespace {

// Digits d1 d2 ... and the exponent of d1, as in d1.d2... times 10^exponent.
struct Scientific {
  std::string digits;
  int exponent = 0;
};

Scientific Split(double magnitude, int significantDigits) {
  std::array<char, 64> buffer{};
  const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                     std::chars_format::scientific, significantDigits - 1);
  const std::string_view text(buffer.data(), static_cast<std::size_t>(written.ptr - buffer.data()));
  const std::size_t e = text.find('e');
  Scientific result;
  for (const char c : text.substr(0, e)) {
    if (c != '.') {
      result.digits += c;
    }
  }
  result.digits.erase(result.digits.find_last_not_of('0') + 1);
  const std::size_t exponentAt = text[e + 1] == '+' ? e + 2 : e + 1;
  std::from_chars(text.data() + exponentAt, text.data() + text.size(), result.exponent);
  return result;
}

std::string Positional(double value, int significantDigits) {
  if (!std::isfinite(value)) {
    throw RuntimeError("overflow: a number without decimal text");
  }
  // All digits of a whole number below this are significant.
  constexpr double kExact = 1e7;
  if (std::fabs(value) < kExact && value == std::trunc(value)) {
    return std::to_string(static_cast<std::int64_t>(value));
  }
  const auto [digits, exponent] = Split(std::fabs(value), significantDigits);
  std::string text = value < 0 ? "-" : "";
  if (exponent < 0) {
    return text + "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
  }
  const std::size_t whole = static_cast<std::size_t>(exponent) + 1;
  if (digits.size() <= whole) {
    return text + digits + std::string(whole - digits.size(), '0');
  }
  return text + digits.substr(0, whole) + "." + digits.substr(whole);
}

}  // namespace

std::string DecimalText(double value) { return Positional(value, 15); }

std::string SingleDecimalText(float value) { return Positional(static_cast<double>(value), 7); }

std::string SignPlaceText(double value) {
  std::string text = DecimalText(value);
  if (text[0] != '-') {
    text.insert(0, 1, ' ');
  }
  if (text.compare(1, 2, "0.") == 0) {
    text.erase(1, 1);
  }
  return text;
}

}  // namespace tallyo
