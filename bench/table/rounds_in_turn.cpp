#include "bench/table/rounds_in_turn.h"

#include <algorithm>
#include <chrono>

namespace tallyo::bench {
namespace {

constexpr std::size_t kLeastPairs = 7;
constexpr std::size_t kMostPairs = 51;
constexpr std::chrono::seconds kTimeForMore{2};

}  // namespace

Pair InTurn(const std::function<double()>& ours, const std::function<double()>& floor) {
  using std::chrono::steady_clock;
  ours();
  floor();
  std::vector<Pair> pairs;
  const auto until = steady_clock::now() + kTimeForMore;
  while (pairs.size() < kLeastPairs || pairs.size() % 2 == 0 ||
         (pairs.size() < kMostPairs && steady_clock::now() < until)) {
    const double oursNow = ours();
    pairs.push_back({oursNow, floor()});
  }
  return MiddlePair(std::move(pairs));
}

Pair MiddlePair(std::vector<Pair> pairs) {
  const auto middle = pairs.begin() + static_cast<std::ptrdiff_t>(pairs.size() / 2);
  std::ranges::nth_element(pairs, middle, {},
                           [](const Pair& pair) { return pair.ours / pair.floor; });
  return *middle;
}

}  // namespace tallyo::bench
