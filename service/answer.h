#pragma once

#include <string>

namespace tallyo::service {

// What a request is answered with.
struct Answer {
  unsigned status = 200;
  const char* contentType = "text/plain; charset=utf-8";
  std::string body;
};

}  // namespace tallyo::service
