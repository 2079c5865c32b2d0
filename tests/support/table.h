#pragma once

#include <tuple>
#include <vector>

namespace tallyo::test {

// The cases of a test, one row each.
template <typename... Columns>
using Table = std::vector<std::tuple<Columns...>>;

}  // namespace tallyo::test
