#pragma once

#include <string>

#include "bench/table/child_process.h"
#include "bench/table/place.h"

namespace tallyo::bench {

// The service that refreshes are measured against, with so many links, each of whose counters grows
// by 1 with each asking.
class Stub {
 public:
  Stub(const Place& place, int links);

  [[nodiscard]] const std::string& Port() const { return port_; }
  [[nodiscard]] std::string Url() const { return "http://127.0.0.1:" + port_ + "/"; }

  // The bytes that it has received and sent until now.
  struct Traffic {
    double received = 0;
    double sent = 0;
  };
  [[nodiscard]] Traffic Total();

 private:
  ChildProcess process_;
  std::string port_;
};

}  // namespace tallyo::bench
