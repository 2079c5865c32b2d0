#pragma once

#include <memory>
#include <string>

#include "platform/http_transfer.h"

namespace tallyo {

// HTTP/1.1 by libcurl. Connections are kept alive from one Get to the next. The proxy variables of
// the environment hold for every address that libcurl sends as it stands; one that needs a raw
// target goes out directly. A name and password in the address are sent as libcurl sends them
// (Basic). All calls come from one thread.
class CurlTransfer : public HttpTransfer {
 public:
  // userAgent: the value of that header, "Tallyo/1.1".
  explicit CurlTransfer(std::string userAgent);
  ~CurlTransfer() override = default;
  CurlTransfer(const CurlTransfer&) = delete;
  CurlTransfer& operator=(const CurlTransfer&) = delete;

  // A time-out below one second counts as one second. Up to five redirects (301, 302, 303, 307,
  // 308 with a Location) are followed where the request wants it, the time-out being for all of
  // them together; a sixth, an unreadable one and one from https to http are failures.
  [[nodiscard]] std::string Get(const TransferRequest& request, EventPump& pump) override;

  void Cancel() override;

 private:
  class Flight;
  struct CloseMulti {
    void operator()(void* multi) const;
  };

  void SetUp();

  std::string userAgent_;
  std::unique_ptr<void, CloseMulti> multi_;  // keeps the connections
  bool inFlight_ = false;
  bool cancelled_ = false;
};

}  // namespace tallyo
