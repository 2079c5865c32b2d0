#pragma once

#include <stdexcept>

namespace tallyo {

// What went wrong in the program's own rules: an overflow, a bad index, a file that is missing or
// broken, a date that is none. A routine that is to fail silently catches this and
// TransportFailure, and nothing else.
class RuntimeError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace tallyo
