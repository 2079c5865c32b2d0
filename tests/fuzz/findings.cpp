#include "tests/fuzz/findings.h"

#include <array>
#include <cstdio>
#include <cstdlib>

namespace tallyo::fuzz {

void Findings::Note(std::string_view what, std::string_view value) {
  constexpr std::string_view kHexDigits = "0123456789abcdef";
  text_.append(what).append(": \"");
  for (const char c : value) {
    if (c >= ' ' && c <= '~' && c != '\\') {
      text_ += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      text_.append("\\x");
      text_ += kHexDigits[byte >> 4U];
      text_ += kHexDigits[byte & 15U];
    }
  }
  text_.append("\"\n");
}

void Findings::Note(std::string_view what, double value) {
  std::array<char, 64> digits{};
  std::snprintf(digits.data(), digits.size(), "%.17g", value);
  text_.append(what).append(": ").append(digits.data()).append("\n");
}

void Findings::Count(std::string_view what, long value) {
  text_.append(what).append(": ").append(std::to_string(value)).append("\n");
}

void RequireSame(const Findings& program, const Findings& plain) {
  if (program.Text() != plain.Text()) {
    std::fprintf(stderr, "== the program found\n%s== the plain reading found\n%s",
                 program.Text().c_str(), plain.Text().c_str());
    std::abort();
  }
}

}  // namespace tallyo::fuzz
