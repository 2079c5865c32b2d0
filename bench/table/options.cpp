#include "bench/table/options.h"

#include <charconv>
#include <string_view>

namespace tallyo::bench {
namespace {

// False where the text is no list of such numbers.
bool ReadNumbers(std::string_view text, int greatest, std::set<int>& numbers) {
  const char* at = text.data();
  const char* const end = at + text.size();
  for (;;) {
    int number = 0;
    const auto [behind, error] = std::from_chars(at, end, number);
    if (error != std::errc() || number < 1 || number > greatest) {
      return false;
    }
    numbers.insert(number);
    if (behind == end) {
      return true;
    }
    if (*behind != ',') {
      return false;
    }
    at = behind + 1;
  }
}

}  // namespace

std::optional<Options> ReadOptions(const std::vector<std::string>& words, int works) {
  Options options;
  for (std::size_t i = 0; i < words.size(); i += 2) {
    if (i + 1 == words.size()) {
      return std::nullopt;
    }
    const std::string& value = words[i + 1];
    if (words[i] == "--json" && !value.empty()) {
      options.json = value;
    } else if (words[i] != "--only" || !ReadNumbers(value, works, options.only)) {
      return std::nullopt;
    }
  }
  return options;
}

}  // namespace tallyo::bench
