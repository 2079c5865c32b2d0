#pragma once

#include <filesystem>

#include "bench/table/interruption.h"

namespace tallyo::bench {

// Where the measuring takes place.
struct Place {
  const Interruption& interruption;
  std::filesystem::path programs;  // the three programs
  std::filesystem::path floors;    // the floors, and the works that are held against them
  std::filesystem::path folder;    // for one work, which finds it empty
};

}  // namespace tallyo::bench
