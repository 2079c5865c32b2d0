#pragma once

#include <string>
#include <string_view>

#include "platform/event_pump.h"

namespace tallyo {

struct TransferRequest {
  std::string address;           // sent byte for byte as it stands
  int timeoutSeconds = 60;       // for the whole transfer, at least 1
  bool followRedirects = false;  // five at most, never from https to http
};

// Throws TransportFailure (BadAddress) unless the address has the scheme http or https, a host,
// and no byte below 0x20 and no 0x7F.
void CheckAddress(std::string_view address);

// One HTTP GET at a time.
class HttpTransfer {
 public:
  virtual ~HttpTransfer() = default;

  // The whole body of the answer, whatever its status, as the server sent it. Waits in short
  // slices and runs the pump between them; what the pump throws ends the transfer and passes
  // through. Throws TransportFailure for an address that cannot be sent, for a transfer that is
  // already in flight, for Cancel(), and for every failure of the network, the time-out, a body
  // that is cut short and one over 16 MiB included.
  [[nodiscard]] virtual std::string Get(const TransferRequest& request, EventPump& pump) = 0;

  // Ends the transfer in flight, if any: its Get throws TransportFailure (Cancelled).
  virtual void Cancel() = 0;
};

}  // namespace tallyo
