#include "bench/table/stub.h"

#include <sstream>

#include "bench/table/worker.h"

namespace tallyo::bench {
namespace {

constexpr std::chrono::seconds kPatience{10};

}  // namespace

Stub::Stub(const Place& place, int links)
    : process_(
          Start(place, {.words = {place.floors / "stub-service", std::to_string(links), "1"}})),
      port_(process_.HearLine(kPatience)) {}

Stub::Traffic Stub::Total() {
  process_.Say("total");
  std::istringstream line(process_.HearLine(kPatience));
  Traffic total;
  line >> total.received >> total.sent;
  return total;
}

}  // namespace tallyo::bench
