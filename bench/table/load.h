#pragma once

#include <chrono>
#include <filesystem>
#include <string>

#include "bench/table/place.h"

namespace tallyo::bench {

// Visitors of counting links, all at once, on 64 connections that stay open (wrk on processor 1).
class Load {
 public:
  // links: so many of make_service_links.cpp are visited in turn. pipelined: requests that are sent
  // together before the answers are waited for.
  Load(const Place& place, int links, int pipelined);

  struct Result {
    double visits = 0;
    double visitsPerSecond = 0;
  };

  // Throws std::runtime_error where an answer is no redirect.
  [[nodiscard]] Result Run(const std::string& url, std::chrono::seconds time) const;

 private:
  const Place& place_;
  std::filesystem::path script_;
};

}  // namespace tallyo::bench
