#pragma once

#include <string>
#include <string_view>

namespace tallyo::service {

// Whether a byte below 0x20, or 0x7F, stands in the text.
[[nodiscard]] bool HoldsControlBytes(std::string_view text);

// Compares and looks for a beginning without regard to ASCII case, whatever the locale.
[[nodiscard]] bool EqualsIgnoringCase(std::string_view text, std::string_view other);
[[nodiscard]] bool BeginsIgnoringCase(std::string_view text, std::string_view beginning);

// The text with every %XX read as its byte. A "%" without two hexadecimal digits stays.
[[nodiscard]] std::string PercentDecoded(std::string_view text);

}  // namespace tallyo::service
