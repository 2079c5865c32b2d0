#pragma once

#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <string_view>

#include "text/shown_text.h"

namespace tallyo {

// Fields in the order in which they were set.
using Json = nlohmann::ordered_json;

// A text of bytes as a JSON text.
[[nodiscard]] inline Json JsonText(std::string_view bytes) { return ShownText(bytes); }

inline void PrintDocument(std::ostream& out, const Json& document) {
  out << document.dump(2) << '\n';
}

}  // namespace tallyo
