#include <filesystem>

#include "bench/table/measure.h"
#include "bench/table/slow_disk.h"
#include "bench/table/worker.h"

namespace tallyo::bench {
namespace {

constexpr double kMilliseconds = 1e3;
constexpr int kWrites = 10'000;
constexpr int kFewWrites = 100;

Worker SettingsWorker(const Place& place, int writes) {
  const std::string count = std::to_string(writes);
  return {place,
          {.words = {place.floors / "settings-work", place.folder / ("app-" + count), count}}};
}

int WritesInTime(const Place& place) {
  Worker probe = SettingsWorker(place, kFewWrites);
  static_cast<void>(probe.Round());
  return StepsInTime(kWrites, probe.Round() / kFewWrites);
}

}  // namespace

void MeasurePageScan(const Place& place, const Report& report) {
  Worker ours(place, {.words = {place.floors / "scan-work"}});
  Worker floor(place, {.words = {place.floors / "scan-floor"}});
  const Pair pair = Compare(ours, floor, kMilliseconds);
  report({.work = "page scan, 10 MB, 100,000 anchors (ms)",
          .ours = pair.ours,
          .floor = pair.floor,
          .goal = 2});
}

void MeasureSettingWrites(const Place& place, const Report& report) {
  const int writes = WritesInTime(place);
  Worker ours = SettingsWorker(place, writes);
  Worker floor(place, {.words = {place.floors / "settings-floor", place.folder / "floor.db",
                                 std::to_string(writes)}});
  const Pair pair = Compare(ours, floor, kMilliseconds);
  report({.work = HowMany(writes, kWrites, "10,000") + " setting writes, one by one (ms)",
          .ours = pair.ours,
          .floor = pair.floor,
          .goal = 1.3});
}

}  // namespace tallyo::bench
