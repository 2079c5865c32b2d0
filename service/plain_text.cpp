#include "service/plain_text.h"

#include <algorithm>
#include <cstddef>
#include <optional>

namespace tallyo::service {

namespace {

char Lower(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

std::optional<unsigned> HexDigit(char digit) {
  if (digit >= '0' && digit <= '9') return static_cast<unsigned>(digit - '0');
  const char lower = Lower(digit);
  if (lower >= 'a' && lower <= 'f') return static_cast<unsigned>(lower - 'a' + 10);
  return std::nullopt;
}

std::optional<char> EscapedByte(std::string_view text) {
  if (text.size() < 3 || text[0] != '%') return std::nullopt;
  const std::optional<unsigned> high = HexDigit(text[1]);
  const std::optional<unsigned> low = HexDigit(text[2]);
  if (!high || !low) return std::nullopt;
  return static_cast<char>(static_cast<unsigned char>(*high * 16 + *low));
}

}  // namespace

bool HoldsControlBytes(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char letter) {
    const auto byte = static_cast<unsigned char>(letter);
    return byte < 0x20 || byte == 0x7F;
  });
}

bool EqualsIgnoringCase(std::string_view text, std::string_view other) {
  return text.size() == other.size() && BeginsIgnoringCase(text, other);
}

bool BeginsIgnoringCase(std::string_view text, std::string_view beginning) {
  return text.size() >= beginning.size() &&
         std::equal(beginning.begin(), beginning.end(), text.begin(),
                    [](char one, char other) { return Lower(one) == Lower(other); });
}

std::string PercentDecoded(std::string_view text) {
  std::string decoded;
  decoded.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (const std::optional<char> byte = EscapedByte(text.substr(i))) {
      decoded += *byte;
      i += 2;
    } else {
      decoded += text[i];
    }
  }
  return decoded;
}

}  // namespace tallyo::service
