#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "tests/force/child_process.h"

namespace tallyo::force {

// When a program is killed: at a moment, or after so many microseconds. Calls are those that change
// a file or speak with the service; each has a moment before it and one behind it, and the moments
// of a run count from 1. Moment 0 never comes.
struct KillPoint {
  enum class Kind { Moment, Microseconds };
  Kind kind = Kind::Moment;
  std::int64_t count = 0;
};

struct KilledRun {
  Ending ending;
  bool killed = false;
  std::int64_t moments = 0;       // those that came by; 0 where nobody looked
  std::int64_t microseconds = 0;  // how long it ran
};

// Runs a program that ends by itself or, where `hasDoneItsWork` is given, with SIGTERM as soon as
// that is true; and kills it with SIGKILL at the point given, if that comes.
[[nodiscard]] KilledRun RunAndKill(const std::vector<std::string>& words, const KillPoint& point,
                                   const std::function<bool()>& hasDoneItsWork = {});

}  // namespace tallyo::force
