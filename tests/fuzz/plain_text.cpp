#include "tests/fuzz/plain_text.h"

#include <array>
#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace tallyo::fuzz {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

}  // namespace

double PlainNumber(std::string_view text) {
  while (text.starts_with(' ')) {
    text.remove_prefix(1);
  }
  std::string number;
  if (text.starts_with('+') || text.starts_with('-')) {
    number += text.front();
    text.remove_prefix(1);
  }
  int digits = 0;
  int points = 0;
  for (const char c : text) {
    digits += IsDigit(c) ? 1 : 0;
    points += c == '.' ? 1 : 0;
    if ((!IsDigit(c) && c != '.') || points > 1) {
      break;
    }
    number += c;
  }
  if (digits == 0) {
    return 0;
  }
  const double value = std::strtod(number.c_str(), nullptr);
  if (std::isinf(value)) {
    return value > 0 ? DBL_MAX : -DBL_MAX;
  }
  return value == 0 ? 0 : value;
}

std::optional<long> PlainInt16(double value) {
  const double whole = std::nearbyint(value);
  if (!(whole >= -32768 && whole <= 32767)) {
    return std::nullopt;
  }
  return static_cast<long>(whole);
}

// Writes each digit to its place between 400 zeros on either side of the point.
std::optional<std::string> PlainDecimal(double value, int significantDigits) {
  if (!std::isfinite(value)) {
    return std::nullopt;
  }
  std::array<char, 64> scientific{};
  std::snprintf(scientific.data(), scientific.size(), "%.*e", significantDigits - 1,
                std::fabs(value));
  const std::string text(scientific.data());
  const int exponent = std::atoi(text.substr(text.find('e') + 1).c_str());
  std::string places(800, '0');
  for (int digit = 0; digit < significantDigits; ++digit) {
    const int at = digit == 0 ? 0 : digit + 1;  // the point stands behind the first
    places.at(static_cast<std::size_t>(399 - exponent + digit)) =
        text.at(static_cast<std::size_t>(at));
  }
  std::string whole = places.substr(0, 400);
  std::string fraction = places.substr(400);
  while (whole.size() > 1 && whole.front() == '0') {
    whole.erase(0, 1);
  }
  while (fraction.ends_with('0')) {
    fraction.pop_back();
  }
  return (value < 0 ? "-" : "") + whole + (fraction.empty() ? "" : "." + fraction);
}

std::vector<std::string> PlainLines(std::string_view text) {
  std::vector<std::string> lines;
  std::string line;
  bool open = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' || text[i] == '\n') {
      i += text.substr(i, 2) == "\r\n" ? 1 : 0;
      lines.push_back(line);
      line.clear();
      open = false;
    } else {
      line += text[i];
      open = true;
    }
  }
  if (open) {
    lines.push_back(line);
  }
  return lines;
}

bool PlainIsFileName(std::string_view name) {
  for (const char c : name) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x20 || byte == 0x7F || c == '/' || c == '\\') {
      return false;
    }
  }
  return !name.empty() && name != "." && name != ".." && name.size() <= 255;
}

std::string PlainMid(const std::string& text, std::size_t from, std::size_t length) {
  return from > text.size() ? "" : text.substr(from - 1, length);
}

std::size_t PlainPosition(const std::string& text, std::string_view part, std::size_t from) {
  for (std::size_t at = from; at + part.size() <= text.size() + 1; ++at) {
    if (text.compare(at - 1, part.size(), part) == 0) {
      return at;
    }
  }
  return 0;
}

}  // namespace tallyo::fuzz
