#include "bench/made_month.h"
#include "bench/table/file_text.h"
#include "bench/table/measure.h"
#include "bench/table/rounds_in_turn.h"
#include "bench/table/slow_disk.h"
#include "bench/table/stub.h"
#include "bench/table/today.h"
#include "bench/table/worker.h"

namespace tallyo::bench {
namespace {

constexpr double kMilliseconds = 1e3;
constexpr double kMicroseconds = 1e6;
constexpr int kMany = 32'767;
constexpr int kSome = 1'000;

std::string Grouped(int number) {
  const std::string digits = std::to_string(number);
  return digits.size() <= 3
             ? digits
             : digits.substr(0, digits.size() - 3) + "," + digits.substr(digits.size() - 3);
}

// Tallyo keeps one slot free, so one link fewer is monitored than the greatest account has.
int Monitored(int records) { return records == kMany ? kMany - 1 : records; }

Worker RefreshWorker(const Place& place, const Stub& stub, int records, const char* due) {
  const std::string appDir = place.folder / ("app-" + std::to_string(records));
  return {place,
          {.words = {place.floors / "refresh-work", std::to_string(Monitored(records)), stub.Port(),
                     appDir, due}}};
}

void MeasureOne(const Place& place, const Report& report, int records) {
  const Stub stub(place, records);
  Worker ours = RefreshWorker(place, stub, records, "notdue");
  Worker floor(place,
               {.words = {place.floors / "refresh-floor", std::to_string(records), stub.Port()}});
  const Pair pair = Compare(ours, floor, kMilliseconds);
  report({.work = "refresh, " + Grouped(records) + " records (ms)",
          .ours = pair.ours,
          .floor = pair.floor,
          .goal = records == kMany ? std::optional(3.0) : std::nullopt});
}

void MeasureGrowthWithSize(const Place& place, const Report& report) {
  const Stub manyStub(place, kMany);
  const Stub someStub(place, kSome);
  Worker many = RefreshWorker(place, manyStub, kMany, "notdue");
  Worker some = RefreshWorker(place, someStub, kSome, "notdue");
  const Pair pair = InTurn([&] { return many.Round() * kMicroseconds / kMany; },
                           [&] { return some.Round() * kMicroseconds / kSome; });
  report({.work = "refresh, time per record at 32,767 (ours) and 1,000 (floor) (us)",
          .ours = pair.ours,
          .floor = pair.floor,
          .goal = 1.5});
}

// How many daily files of a round fit in the time.
int FilesInTime(const Place& place, const std::filesystem::path& yearFolder,
                const std::string& month) {
  constexpr int kTrial = 128;
  Worker probe(
      place, {.words = {place.floors / "daily-floor", yearFolder, month, std::to_string(kTrial)}});
  static_cast<void>(probe.Round());
  return StepsInTime(kSome, probe.Round() / kTrial);
}

}  // namespace

void MeasureRefresh(const Place& place, const Report& report) {
  for (const int records : {100, kSome, 10'000, kMany}) {
    MeasureOne(place, report, records);
    std::filesystem::remove_all(place.folder / ("app-" + std::to_string(records)));
  }
  MeasureGrowthWithSize(place, report);
}

void MeasureGrowth(const Place& place, const Report& report) {
  const Today today;
  const auto floorFiles = place.folder / "floor";
  WriteMonths(floorFiles, kSome, {today.month});
  const int links = FilesInTime(place, floorFiles, today.month);
  const auto ourFiles = place.folder / ("app-" + std::to_string(links)) / "Data" / today.year;
  WriteMonths(ourFiles, links, {today.month});
  const auto lastFile = DailyFileOf(ourFiles, links, today.month);
  const std::string before = FileText(lastFile);
  const Stub stub(place, links);
  Worker ours = RefreshWorker(place, stub, links, "due");
  Worker floor(place, {.words = {place.floors / "daily-floor", floorFiles, today.month,
                                 std::to_string(links)}});
  const Pair pair = Compare(ours, floor, kMilliseconds);
  if (FileText(lastFile) == before) {
    throw std::runtime_error("the daily files were not written");
  }
  report({.work = "refresh with growth on every link, " + HowMany(links, kSome, "1,000") +
                  " daily files (ms)",
          .ours = pair.ours,
          .floor = pair.floor,
          .goal = 1.3});
}

void MeasureTraffic(const Place& place, const Report& report) {
  Stub stub(place, kSome);
  Worker ours = RefreshWorker(place, stub, kSome, "notdue");
  static_cast<void>(ours.Round());
  const Stub::Traffic before = stub.Total();
  static_cast<void>(ours.Round());
  const Stub::Traffic after = stub.Total();
  report({.work = "bytes that a refresh of 1,000 links sends",
          .ours = after.received - before.received});
  report(
      {.work = "bytes that a refresh of 1,000 links receives", .ours = after.sent - before.sent});
}

}  // namespace tallyo::bench
