#pragma once

#include <functional>
#include <vector>

namespace tallyo::bench {

// The figures of one round of each side.
struct Pair {
  double ours = 0;
  double floor = 0;
};

// Runs both sides in turn, ours first: one pair that is not counted, then at least seven, and as
// many more (an odd number, 51 at most) as fit in two seconds. Each side gives its figure. The pair
// whose ratio is the middle one, so that what else the machine does falls on both of its sides.
[[nodiscard]] Pair InTurn(const std::function<double()>& ours,
                          const std::function<double()>& floor);

// The pair of several, an odd number, whose ratio is the middle one.
[[nodiscard]] Pair MiddlePair(std::vector<Pair> pairs);

}  // namespace tallyo::bench
