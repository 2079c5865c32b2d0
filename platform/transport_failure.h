#pragma once

#include <stdexcept>
#include <string>

namespace tallyo {

// A document that could not be fetched. what() is a plain sentence without a full stop, fit for a
// person ("could not connect to 127.0.0.1:8080").
class TransportFailure : public std::runtime_error {
 public:
  enum class Reason {
    BadAddress,  // the address cannot be sent; nothing was
    Busy,        // another fetch is in flight; nothing was sent
    Cancelled,   // given up by the program itself
    Failed,      // the network or the other side
  };

  TransportFailure(Reason reason, const std::string& message)
      : std::runtime_error(message), reason_(reason) {}

  [[nodiscard]] Reason Why() const { return reason_; }

 private:
  Reason reason_;
};

}  // namespace tallyo
