#pragma once

#include <string>

#include "bench/table/child_process.h"
#include "bench/table/place.h"
#include "bench/table/rounds_in_turn.h"

namespace tallyo::bench {

// A process whose complaints and temporary files go to the folder of the work, and which asks this
// machine without a proxy.
[[nodiscard]] ChildProcess Start(const Place& place, const Command& command);

// Runs a program to its end; what it printed.
std::string RunToEnd(const Place& place, const Command& command);

// A program that serves rounds (bench/rounds.h).
class Worker {
 public:
  Worker(const Place& place, const Command& command);

  // What it printed before it was ready.
  [[nodiscard]] const std::string& Preface() const { return preface_; }

  // The seconds that one round took.
  [[nodiscard]] double Round();

  // Ends it; throws std::runtime_error where the program finds that its work was not done.
  void Finish();

 private:
  ChildProcess process_;
  std::string preface_;
};

// The figures of two workers, in `unit`s in a second, and their end.
[[nodiscard]] Pair Compare(Worker& ours, Worker& floor, double unit);

}  // namespace tallyo::bench
