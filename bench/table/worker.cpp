#include "bench/table/worker.h"

namespace tallyo::bench {
namespace {

constexpr std::chrono::seconds kPatience{60};

}  // namespace

ChildProcess Start(const Place& place, const Command& command) {
  Command here = command;
  here.environment.emplace_back("TMPDIR", place.folder);
  here.environment.emplace_back("no_proxy", "127.0.0.1");
  here.environment.emplace_back("NO_PROXY", "127.0.0.1");
  return {place.interruption, here, place.folder / "complaints"};
}

std::string RunToEnd(const Place& place, const Command& command) {
  return Start(place, command).HearToEnd(kPatience);
}

Worker::Worker(const Place& place, const Command& command) : process_(Start(place, command)) {
  std::string line;
  while ((line = process_.HearLine(kPatience)) != "ready") {
    preface_ += line;
  }
}

double Worker::Round() {
  process_.Say("again");
  return std::stod(process_.HearLine(kPatience));
}

void Worker::Finish() { process_.HearToEnd(kPatience); }

Pair Compare(Worker& ours, Worker& floor, double unit) {
  const Pair pair =
      InTurn([&] { return ours.Round() * unit; }, [&] { return floor.Round() * unit; });
  ours.Finish();
  floor.Finish();
  return pair;
}

}  // namespace tallyo::bench
