#pragma once

#include <chrono>
#include <iostream>
#include <string>

namespace tallyo::bench {

// Serves the table: for each line on standard input, runs the work once and prints the seconds it
// took. The first line printed, "ready", says that everything before the work is done. `after` runs
// outside the measured time.
template <typename Work, typename After>
void ServeRounds(const Work& work, const After& after) {
  std::cout << "ready" << std::endl;
  for (std::string line; std::getline(std::cin, line);) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
    after();
    std::cout << seconds.count() << std::endl;
  }
}

template <typename Work>
void ServeRounds(const Work& work) {
  ServeRounds(work, [] {});
}

}  // namespace tallyo::bench
