#pragma once

#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tallyo::bench {

struct Options {
  std::filesystem::path json;  // empty: none is written
  std::set<int> only;          // empty: all works
};

// [--json FILE] [--only N[,N...]], the numbers being 1 to `works`; nothing where the words are
// others.
[[nodiscard]] std::optional<Options> ReadOptions(const std::vector<std::string>& words, int works);

}  // namespace tallyo::bench
