#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

namespace tallyo::fuzz {

// What one reading of an input found, fact by fact.
using Findings = std::vector<std::pair<std::string, std::string>>;

// A line for each fact. Every byte but plain ASCII is escaped.
inline std::string TextOf(const Findings& findings) {
  constexpr std::string_view kHexDigits = "0123456789abcdef";
  std::string text;
  for (const auto& [what, value] : findings) {
    text += what + ": \"";
    for (const char c : value) {
      if (c >= ' ' && c <= '~' && c != '\\') {
        text += c;
      } else {
        const auto byte = static_cast<unsigned char>(c);
        text.append("\\x").append({kHexDigits[byte >> 4U], kHexDigits[byte & 15U]});
      }
    }
    text += "\"\n";
  }
  return text;
}

// Prints both and aborts where the program found something else than the plain reading did.
inline void RequireSame(const Findings& program, const Findings& plain) {
  if (program != plain) {
    std::fprintf(stderr, "== the program found\n%s== the plain reading found\n%s",
                 TextOf(program).c_str(), TextOf(plain).c_str());
    std::abort();
  }
}

}  // namespace tallyo::fuzz
