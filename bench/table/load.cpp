#include "bench/table/load.h"

#include <sstream>
#include <stdexcept>

#include "bench/table/file_text.h"
#include "bench/table/worker.h"

namespace tallyo::bench {
namespace {

constexpr int kProcessor = 1;
constexpr std::chrono::seconds kSlack{20};

// Makes the requests before the first one is sent. `done` prints what wrk itself does not say
// plainly: how many answers were no redirect.
std::string Script(int links, int pipelined) {
  std::ostringstream script;
  script << "local links, together = " << links << ", " << pipelined << R"(
local batches, last = {}, 0
function init()
  local batch = {}
  for i = 0, links - 1 do
    local path = string.format("/cgi-bin/Tallyo/tallyo.cgi?acc=bench%d&flnk=manual-%d.pdf",
                               math.floor(i / 25000), i)
    batch[#batch + 1] = wrk.format("GET", path)
    if #batch == together then
      batches[#batches + 1] = table.concat(batch)
      batch = {}
    end
  end
end
function request()
  last = last % #batches + 1
  return batches[last]
end
function done(summary)
  local errors = summary.errors
  print("visits " .. summary.requests)
  print("failures " .. errors.connect + errors.read + errors.write + errors.status)
  print("rate " .. summary.requests / summary.duration * 1e6)
end
)";
  return script.str();
}

double FigureBehind(const std::string& text, const std::string& word) {
  const std::size_t at = text.find("\n" + word + " ");
  if (at == std::string::npos) {
    throw std::runtime_error("wrk says nothing of " + word);
  }
  return std::stod(text.substr(at + word.size() + 2));
}

}  // namespace

Load::Load(const Place& place, int links, int pipelined)
    : place_(place), script_(place.folder / ("load-" + std::to_string(pipelined) + ".lua")) {
  WriteText(script_, Script(links, pipelined));
}

Load::Result Load::Run(const std::string& url, std::chrono::seconds time) const {
  ChildProcess wrk =
      Start(place_, {.words = {"wrk", "-t1", "-c64", "-d" + std::to_string(time.count()) + "s",
                               "-s", script_, url},
                     .processor = kProcessor});
  const std::string said = wrk.HearToEnd(time + kSlack);
  if (FigureBehind(said, "failures") != 0) {
    throw std::runtime_error("not every visit was answered with a redirect");
  }
  return {.visits = FigureBehind(said, "visits"), .visitsPerSecond = FigureBehind(said, "rate")};
}

}  // namespace tallyo::bench
