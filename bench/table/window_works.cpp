#include <algorithm>
#include <memory>
#include <sstream>

#include "bench/made_month.h"
#include "bench/table/desktop.h"
#include "bench/table/measure.h"
#include "bench/table/process_readings.h"
#include "bench/table/rounds_in_turn.h"
#include "bench/table/stub.h"
#include "bench/table/today.h"
#include "bench/table/worker.h"

namespace tallyo::bench {
namespace {

constexpr int kLinks = 1'000;
constexpr std::chrono::milliseconds kSettling{1500};
constexpr std::chrono::seconds kSettlingOfMany{4};
constexpr std::chrono::seconds kIdleOnEach{30};
constexpr std::size_t kPairs = 7;

// An AppDir of its own, since one window at a time may use it.
std::filesystem::path MakeAppDir(const Place& place, std::size_t number,
                                 const std::vector<std::string>& months) {
  std::filesystem::path appDir = place.folder / ("app-" + std::to_string(number));
  RunToEnd(place, {.words = {place.floors / "make-links", std::to_string(kLinks), appDir}});
  WriteMonths(appDir / "Data" / Today().year, kLinks, months);
  return appDir;
}

std::vector<std::string> OurWords(const Place& place, const std::filesystem::path& appDir,
                                  const Stub& stub) {
  return {place.programs / "tallyo", "--app-dir", appDir, "--service-url", stub.Url()};
}

struct Opening {
  double milliseconds = 0;
  double megabytes = 0;
};

Opening Open(const Place& place, const Desktop& desktop, const std::vector<std::string>& words) {
  ShownWindow window(place, desktop, words);
  const double seconds = window.SecondsToPaint();
  place.interruption.Pause(kSettling);
  return {seconds * 1e3, ResidentMegabytes(window.Number())};
}

// Our windows and the empty ones, all at once: they wait most of the time.
class IdleWindows {
 public:
  IdleWindows(const Place& place, const Desktop& desktop, const Stub& stub) : place_(place) {
    for (std::size_t i = 0; i < kPairs; ++i) {
      const std::filesystem::path appDir = MakeAppDir(place, i, {Today().month});
      ours_.push_back(std::make_unique<ShownWindow>(place, desktop, OurWords(place, appDir, stub)));
      static_cast<void>(ours_.back()->SecondsToPaint());
      floors_.push_back(std::make_unique<ShownWindow>(
          place, desktop, std::vector<std::string>{place.floors / "window-floor", "500"}));
      static_cast<void>(floors_.back()->SecondsToPaint());
    }
  }

  void Choose(const std::string& action) {
    for (const auto& windows : {&ours_, &floors_}) {
      std::ranges::for_each(*windows, [&](const auto& window) { window->Choose(action); });
    }
    place_.interruption.Pause(kSettlingOfMany);
  }

  // The processor milliseconds that each takes while nothing happens.
  [[nodiscard]] std::vector<Pair> Idle() const {
    const std::vector<Pair> before = Used();
    place_.interruption.Pause(kIdleOnEach);
    std::vector<Pair> pairs = Used();
    for (std::size_t i = 0; i < pairs.size(); ++i) {
      pairs[i].ours -= before[i].ours;
      pairs[i].floor -= before[i].floor;
    }
    return pairs;
  }

 private:
  [[nodiscard]] std::vector<Pair> Used() const {
    std::vector<Pair> pairs;
    for (std::size_t i = 0; i < ours_.size(); ++i) {
      pairs.push_back({ProcessorSeconds(ours_[i]->Number()) * 1e3,
                       ProcessorSeconds(floors_[i]->Number()) * 1e3});
    }
    return pairs;
  }

  const Place& place_;
  std::vector<std::unique_ptr<ShownWindow>> ours_;
  std::vector<std::unique_ptr<ShownWindow>> floors_;
};

}  // namespace

void MeasureWindowStart(const Place& place, const Report& report) {
  const Desktop desktop(place);
  const Stub stub(place, kLinks);
  const std::vector<std::string> ours = OurWords(place, MakeAppDir(place, 0, {}), stub);
  const std::vector<std::string> floor = {place.floors / "window-floor"};
  std::vector<Pair> memory;
  Opening opened;
  const auto open = [&](const std::vector<std::string>& words) {
    opened = Open(place, desktop, words);
    return opened.milliseconds;
  };
  const Pair start = InTurn(
      [&] {
        const double time = open(ours);
        memory.push_back({.ours = opened.megabytes});
        return time;
      },
      [&] {
        const double time = open(floor);
        memory.back().floor = opened.megabytes;
        return time;
      });
  report({.work = "window, process start to first painting, 1,000 links (ms)",
          .ours = start.ours,
          .floor = start.floor,
          .goal = 1.5});
  memory.erase(memory.begin());
  const Pair middle = MiddlePair(std::move(memory));
  report({.work = "window, resident memory, 1,000 links (MB)",
          .ours = middle.ours,
          .floor = middle.floor,
          .goal = 1.5});
}

void MeasureWindowIdle(const Place& place, const Report& report) {
  const Desktop desktop(place);
  const Stub stub(place, kLinks);
  IdleWindows windows(place, desktop, stub);
  windows.Choose("mnuWindCurrent");
  std::vector<Pair> pairs = windows.Idle();
  windows.Choose("mnuWindDaily");
  const std::vector<Pair> daily = windows.Idle();
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    pairs[i].ours += daily[i].ours;
    pairs[i].floor += daily[i].floor;
  }
  const Pair pair = MiddlePair(std::move(pairs));
  report({.work = "window idle, processor time in 60 s on screens 1 and 3 (ms)",
          .ours = pair.ours,
          .floor = pair.floor,
          .goal = 2});
}

void MeasureMonthChoice(const Place& place, const Report& report) {
  const Command ours = {
      .words = {place.floors / "month-work", MakeAppDir(place, 0, {"Jul", "Aug"})},
      .environment = {{"QT_QPA_PLATFORM", "offscreen"}}};
  Worker ourWorker(place, ours);
  std::istringstream size(ourWorker.Preface());
  std::string width;
  std::string height;
  size >> width >> height;
  Worker floorWorker(place, {.words = {place.floors / "month-floor", width, height},
                             .environment = ours.environment});
  const Pair pair = Compare(ourWorker, floorWorker, 1e3);
  report({.work = "daily screen, choosing another link and another month (ms)",
          .ours = pair.ours,
          .floor = pair.floor,
          .goal = 2});
}

}  // namespace tallyo::bench
