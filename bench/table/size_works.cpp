#include "bench/table/measure.h"
#include "bench/table/worker.h"

namespace tallyo::bench {

void MeasureSizes(const Place& place, const Report& report) {
  for (const std::string program : {"tallyo", "tallyo-cli", "tallyo-service"}) {
    const std::filesystem::path stripped = place.folder / program;
    RunToEnd(place, {.words = {"strip", "-o", stripped, place.programs / program}});
    report({.work = "size of " + program + " as installed (kB)",
            .ours = static_cast<double>(std::filesystem::file_size(stripped)) / 1e3});
  }
}

}  // namespace tallyo::bench
