#pragma once

#include <set>
#include <string>
#include <vector>

#include "tests/faults/faulty_program.h"

namespace tallyo::test {

// Runs every operation again and again, a fault striking one call later each time (or at that call
// and all later ones), until it gets through without one. Each time nothing that was stored is
// lost, the boxes are the right ones, the session goes on, and so does the next one after a kill.
// Every operation is hit more often than `least`, but for those that the faults cannot hit. Writes
// the hits down for a reader of the test's output.
void Sweep(const std::vector<Fault>& faults, int least, const std::set<std::string>& unhit = {});

}  // namespace tallyo::test
