#pragma once

#include <string>
#include <string_view>

namespace tallyo {

// The program's texts are bytes. For showing, bytes that are valid UTF-8 are taken as such, all
// others as Windows-1252; the result is always valid UTF-8.
[[nodiscard]] std::string ShownText(std::string_view bytes);

[[nodiscard]] bool IsUtf8(std::string_view bytes);

}  // namespace tallyo
