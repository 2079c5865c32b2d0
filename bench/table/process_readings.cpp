#include "bench/table/process_readings.h"

#include <ctime>
#include <fstream>
#include <stdexcept>
#include <string>

namespace tallyo::bench {

double ProcessorSeconds(pid_t process) {
  clockid_t clock{};
  timespec used{};
  if (::clock_getcpuclockid(process, &clock) != 0 || ::clock_gettime(clock, &used) != 0) {
    throw std::runtime_error("a process is gone before its time could be read");
  }
  return static_cast<double>(used.tv_sec) + static_cast<double>(used.tv_nsec) / 1e9;
}

double ResidentMegabytes(pid_t process) {
  std::ifstream rollup("/proc/" + std::to_string(process) + "/smaps_rollup");
  for (std::string word; rollup >> word;) {
    if (word == "Rss:") {
      double kilobytes = 0;
      rollup >> kilobytes;
      return kilobytes * 1024 / 1e6;
    }
  }
  throw std::runtime_error("a process is gone before its memory could be read");
}

}  // namespace tallyo::bench
