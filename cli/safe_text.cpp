#include "cli/safe_text.h"

#include <algorithm>

#include "text/shown_text.h"

namespace tallyo {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD

unsigned char ByteAt(std::string_view text, std::size_t at) {
  return static_cast<unsigned char>(text[at]);
}

std::string WithoutControls(std::string_view text, bool keepLineFeeds) {
  const std::string shown = ShownText(text);
  std::string safe;
  safe.reserve(shown.size());
  for (std::size_t i = 0; i < shown.size(); ++i) {
    const unsigned char byte = ByteAt(shown, i);
    if (byte == '\n' && keepLineFeeds) {
      safe += '\n';
    } else if (byte < 0x20 || byte == 0x7F) {
      safe += kReplacement;
    } else if (byte == 0xC2 && ByteAt(shown, i + 1) < 0xA0) {  // U+0080 to U+009F
      safe += kReplacement;
      ++i;
    } else {
      safe += shown[i];
    }
  }
  return safe;
}

}  // namespace

std::string OneLine(std::string_view text) { return WithoutControls(text, false); }

std::string SeveralLines(std::string_view text) { return WithoutControls(text, true); }

std::size_t Columns(std::string_view text) {
  return static_cast<std::size_t>(std::ranges::count_if(
      text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80; }));
}

}  // namespace tallyo
