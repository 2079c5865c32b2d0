#include "text/two_digits.h"

namespace tallyo {

std::string TwoDigits(int value) {
  std::string text = std::to_string(value);
  const std::size_t sign = value < 0 ? 1 : 0;
  if (text.size() - sign < 2) {
    text.insert(sign, 1, '0');
  }
  return text;
}

}  // namespace tallyo
