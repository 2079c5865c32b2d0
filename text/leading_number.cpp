#include "text/leading_number.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>

#include "text/runtime_error.h"

namespace tallyo {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Where the number of a text stands: its sign and the span of its digits and point.
struct NumberSpan {
  bool negative = false;
  std::string_view digits;    // with the point; empty where there is no digit
  std::string_view leftOver;  // what stands behind the number
};

NumberSpan FindNumber(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  NumberSpan span;
  std::size_t at = 0;
  if (!text.empty() && (text[0] == '+' || text[0] == '-')) {
    span.negative = text[0] == '-';
    at = 1;
  }
  const std::size_t first = at;
  bool digitSeen = false;
  bool pointSeen = false;
  for (; at < text.size(); ++at) {
    if (IsDigit(text[at])) {
      digitSeen = true;
    } else if (text[at] == '.' && !pointSeen) {
      pointSeen = true;
    } else {
      break;
    }
  }
  if (digitSeen) {
    span.digits = text.substr(first, at - first);
    span.leftOver = text.substr(at);
  }
  return span;
}

bool HasWholePart(std::string_view digits) {
  const std::string_view whole = digits.substr(0, digits.find('.'));
  return whole.find_first_not_of('0') != std::string_view::npos;
}

// Whole numbers that a double holds exactly, which most are.
std::optional<double> ShortWholeNumber(std::string_view digits) {
  constexpr std::size_t kExactDigits = 15;
  if (digits.empty() || digits.size() > kExactDigits) {
    return std::nullopt;
  }
  std::int64_t value = 0;
  for (const char c : digits) {
    if (!IsDigit(c)) {
      return std::nullopt;
    }
    value = value * 10 + (c - '0');
  }
  return static_cast<double>(value);
}

double Value(const NumberSpan& span) {
  if (const std::optional<double> whole = ShortWholeNumber(span.digits)) {
    return span.negative && *whole != 0 ? -*whole : *whole;
  }
  double value = 0;
  const auto [end, error] = std::from_chars(
      span.digits.data(), span.digits.data() + span.digits.size(), value, std::chars_format::fixed);
  if (error == std::errc::result_out_of_range) {
    // Too large and too small are told apart by the digits before the point.
    value = HasWholePart(span.digits) ? std::numeric_limits<double>::max() : 0;
  }
  return span.negative && value != 0 ? -value : value;
}

}  // namespace

double LeadingNumber(std::string_view text) {
  if (const std::optional<double> whole = ShortWholeNumber(text)) {
    return *whole;
  }
  const NumberSpan span = FindNumber(text);
  return span.digits.empty() ? 0 : Value(span);
}

double StrictNumber(std::string_view text) {
  const NumberSpan span = FindNumber(text);
  if (span.digits.empty() || span.leftOver.find_first_not_of(' ') != std::string_view::npos) {
    throw RuntimeError("not a number: " + std::string(text.substr(0, 40)));
  }
  return Value(span);
}

}  // namespace tallyo
