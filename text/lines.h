#pragma once

#include <optional>
#include <string_view>

namespace tallyo {

// Walks through the lines of a text. A line ends at CR LF, LF or CR; a last line without an end
// counts. The text must outlive the walk.
class Lines {
 public:
  explicit Lines(std::string_view text) : rest_(text) {}

  // The next line without its end; nothing when the text is used up.
  [[nodiscard]] std::optional<std::string_view> Next();

 private:
  std::string_view rest_;
};

// The first line. Throws RuntimeError for the empty text, which has none.
[[nodiscard]] std::string_view FirstLine(std::string_view text);

}  // namespace tallyo
