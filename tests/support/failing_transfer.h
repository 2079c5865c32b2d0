#pragma once

#include <string>

#include "platform/http_transfer.h"
#include "platform/transport_failure.h"
#include "tests/support/fault_plan.h"

namespace tallyo::test {

enum class TransferFault {
  None,
  Lost,        // the connection breaks before anything has come
  LostAnswer,  // the service has done what it was asked, and its answer does not arrive
};

// Another transfer, some of whose requests fail.
class FailingTransfer final : public HttpTransfer {
 public:
  FailingTransfer(HttpTransfer& real, FaultPlan& plan, TransferFault fault)
      : real_(real), plan_(plan), fault_(fault) {}

  [[nodiscard]] std::string Get(const TransferRequest& request, EventPump& pump) override {
    const bool strikes = fault_ != TransferFault::None && plan_.Strikes();
    std::string body = strikes && fault_ == TransferFault::Lost ? "" : real_.Get(request, pump);
    if (strikes) {
      throw TransportFailure(TransportFailure::Reason::Failed, "the connection was lost");
    }
    return body;
  }
  void Cancel() override { real_.Cancel(); }

 private:
  HttpTransfer& real_;
  FaultPlan& plan_;
  TransferFault fault_;
};

}  // namespace tallyo::test
