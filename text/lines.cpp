#include "text/lines.h"

#include "text/runtime_error.h"

namespace tallyo {

std::optional<std::string_view> Lines::Next() {
  if (rest_.empty()) {
    return std::nullopt;
  }
  const std::size_t end = rest_.find_first_of("\r\n");
  const std::string_view line = rest_.substr(0, end);
  if (end == std::string_view::npos) {
    rest_ = {};
  } else {
    const bool crLf = rest_.substr(end, 2) == "\r\n";
    rest_.remove_prefix(end + (crLf ? 2 : 1));
  }
  return line;
}

std::string_view FirstLine(std::string_view text) {
  const std::optional<std::string_view> line = Lines(text).Next();
  if (!line) {
    throw RuntimeError("the file is empty");
  }
  return *line;
}

}  // namespace tallyo
