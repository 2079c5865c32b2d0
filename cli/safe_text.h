#pragma once

#include <string>
#include <string_view>

namespace tallyo {

// A text from anywhere, fit for a terminal: valid UTF-8, every control character (C0, DEL, C1)
// replaced, so that nothing of it can steer the terminal.
[[nodiscard]] std::string OneLine(std::string_view text);

// The same with line feeds kept.
[[nodiscard]] std::string SeveralLines(std::string_view text);

// How many columns a text of OneLine takes, one for each code point.
[[nodiscard]] std::size_t Columns(std::string_view text);

}  // namespace tallyo
