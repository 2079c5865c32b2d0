#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The rules for numbers, lines and file names once more: slow, plain, and sharing nothing with the
// program.
namespace tallyo::fuzz {

[[nodiscard]] double PlainNumber(std::string_view text);

// Rounded half to even; nothing where that is outside of 16 bits.
[[nodiscard]] std::optional<long> PlainInt16(double value);

// Nothing for what is not finite.
[[nodiscard]] std::optional<std::string> PlainDecimal(double value, int significantDigits = 15);

[[nodiscard]] std::vector<std::string> PlainLines(std::string_view text);

[[nodiscard]] bool PlainIsFileName(std::string_view name);

// The part of a text from a position on, both counted from 1; "" behind its end.
[[nodiscard]] std::string PlainMid(const std::string& text, std::size_t from,
                                   std::size_t length = std::string::npos);

// The position of a part in a text from a position on, both counted from 1; 0 where it is not
// there.
[[nodiscard]] std::size_t PlainPosition(const std::string& text, std::string_view part,
                                        std::size_t from = 1);

}  // namespace tallyo::fuzz
