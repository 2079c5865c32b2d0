#pragma once

#include <algorithm>
#include <string>

namespace tallyo::bench {

// How many of the wanted steps a round may have where each waits for a disk that is slow to flush,
// in whole hundreds, so that all the rounds of a comparison take 45
// seconds.
inline int StepsInTime(int wanted, double secondsForOne) {
  constexpr double kSecondsForAllRounds = 45;
  constexpr int kRounds = 16;  // seven pairs and one that is not counted
  constexpr int kFewest = 100;
  const double fitting = std::min(kSecondsForAllRounds / kRounds / secondsForOne, 1e6);
  return std::clamp(static_cast<int>(fitting) / kFewest * kFewest, kFewest, wanted);
}

// "1,000", or "400 of 1,000"
inline std::string HowMany(int steps, int wanted, const std::string& wantedText) {
  return steps == wanted ? wantedText : std::to_string(steps) + " of " + wantedText;
}

}  // namespace tallyo::bench
