#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "tests/faults/faulty_program.h"
#include "tests/faults/kept_data.h"

namespace tallyo::test {

// Something that a person does, which faults may hit anywhere on its way.
struct Operation {
  std::string name;
  // Puts into the folder what is there before; it holds three links with counters and hits already.
  std::function<void(const std::filesystem::path& folder)> prepare = [](const auto&) {};
  bool isStart = false;  // else the session has started well before
  std::function<void(FaultyProgram& program)> act;
  // Fails the test unless the boxes are those that what has become of the data calls for. FOLDER
  // stands for the AppDir in them.
  std::function<void(const std::vector<std::string>& boxes, const KeptData& now,
                     const KeptData& before, const KeptData& after)>
      expectBoxes;
  bool linksMayBeGone = false;
};

[[nodiscard]] const std::vector<Operation>& Operations();

}  // namespace tallyo::test
