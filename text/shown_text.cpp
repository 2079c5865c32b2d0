#include "text/shown_text.h"

#include <array>

namespace tallyo {
namespace {

// Windows-1252 at 0x80 to 0x9F; the five bytes it leaves open stand for themselves.
constexpr std::array<char16_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void AppendUtf8(std::string& text, char16_t code) {
  const unsigned value = code;
  if (value < 0x80) {
    text += static_cast<char>(value);
  } else if (value < 0x800) {
    text += static_cast<char>(0xC0U | (value >> 6U));
    text += static_cast<char>(0x80U | (value & 0x3FU));
  } else {
    text += static_cast<char>(0xE0U | (value >> 12U));
    text += static_cast<char>(0x80U | ((value >> 6U) & 0x3FU));
    text += static_cast<char>(0x80U | (value & 0x3FU));
  }
}

// What may follow a lead byte: how many bytes, and the range of the first of them, which rules out
// overlong forms, surrogates and codes past 0x10FFFF.
struct Sequence {
  std::size_t following = 0;
  unsigned char low = 0x80;
  unsigned char high = 0xBF;
};

bool StartSequence(unsigned char lead, Sequence& sequence) {
  if (lead < 0x80) {
    sequence = {0};
  } else if (lead >= 0xC2 && lead <= 0xDF) {
    sequence = {1};
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    sequence = {2, static_cast<unsigned char>(lead == 0xE0 ? 0xA0 : 0x80),
                static_cast<unsigned char>(lead == 0xED ? 0x9F : 0xBF)};
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    sequence = {3, static_cast<unsigned char>(lead == 0xF0 ? 0x90 : 0x80),
                static_cast<unsigned char>(lead == 0xF4 ? 0x8F : 0xBF)};
  } else {
    return false;
  }
  return true;
}

}  // namespace

bool IsUtf8(std::string_view bytes) {
  std::size_t at = 0;
  while (at < bytes.size()) {
    Sequence sequence;
    if (!StartSequence(static_cast<unsigned char>(bytes[at]), sequence) ||
        bytes.size() - at <= sequence.following) {
      return false;
    }
    for (std::size_t i = 1; i <= sequence.following; ++i) {
      const auto byte = static_cast<unsigned char>(bytes[at + i]);
      if (byte < (i == 1 ? sequence.low : 0x80) || byte > (i == 1 ? sequence.high : 0xBF)) {
        return false;
      }
    }
    at += sequence.following + 1;
  }
  return true;
}

std::string ShownText(std::string_view bytes) {
  if (IsUtf8(bytes)) {
    return std::string(bytes);
  }
  std::string text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    const bool special = byte >= 0x80 && byte < 0xA0;
    AppendUtf8(text, special ? kWindows1252.at(byte - 0x80U) : byte);
  }
  return text;
}

}  // namespace tallyo
