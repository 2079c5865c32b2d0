#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/faults/operations.h"

namespace tallyo::test {

// How often each operation was hit.
using Hits = std::map<std::string, int>;
[[nodiscard]] int Sum(const Hits& hits);

// Runs every operation again and again, a fault striking one call later each time (or at that call
// and all later ones), until it gets through without one. Each time nothing that was stored is
// lost, the boxes are the right ones, the session goes on, and so does the next one after a kill.
// Adds the hits, and writes them down for a reader of the test's output.
void Sweep(const std::vector<Fault>& faults, Hits& hits);

}  // namespace tallyo::test
