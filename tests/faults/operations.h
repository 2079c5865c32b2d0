#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tests/faults/faulty_program.h"

namespace tallyo::test {

// What there is before an operation, what there should be after it, and what has come of it. FOLDER
// stands for the AppDir in the texts of boxes.
struct Outcome {
  const KeptData& before;
  const KeptData& wanted;
  KeptData now;
  std::vector<std::string> boxes;
};

// Something that a person does, which faults may hit anywhere on its way.
struct Operation {
  std::string name;
  // Puts into the AppDir what is there before, besides links, counters and hits.
  std::function<void(FaultyProgram& program)> prepare = [](FaultyProgram&) {};
  bool isStart = false;  // else the session has started well before
  std::function<void(FaultyProgram& program)> act;
  // Fails the test unless the boxes are those that what has become of the data calls for.
  std::function<void(const Outcome& outcome)> expectBoxes;
  bool linksMayBeGone = false;
};

[[nodiscard]] const std::vector<Operation>& Operations();

}  // namespace tallyo::test
