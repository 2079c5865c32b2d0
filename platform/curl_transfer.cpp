#include "platform/curl_transfer.h"

#include <curl/curl.h>

#include <algorithm>
#include <chrono>
#include <new>
#include <optional>
#include <stdexcept>
#include <utility>

#include "platform/curl_hop.h"
#include "platform/request_address.h"
#include "platform/transport_failure.h"

namespace tallyo {
namespace {

using Reason = TransportFailure::Reason;
using SteadyClock = std::chrono::steady_clock;

constexpr int kMostRedirects = 5;
constexpr int kSliceMilliseconds = 50;

// libcurl is set up once for the whole process, before its first handle, and put down when the
// process ends, after every transfer.
void SetUpCurlOnce() {
  struct Owner {
    Owner() {
      if (curl_global_init(CURL_GLOBAL_DEFAULT) != CURLE_OK) {
        throw std::runtime_error("libcurl cannot be set up");
      }
    }
    ~Owner() { curl_global_cleanup(); }
    Owner(const Owner&) = delete;
    Owner& operator=(const Owner&) = delete;
  };
  static const Owner owner;
}

void Check(CURLMcode code) {
  if (code != CURLM_OK) throw TransportFailure(Reason::Failed, curl_multi_strerror(code));
}

// A handle is among those that are driven as long as this lives. One that is taken out early
// loses its connection, one that has ended leaves it for the next.
class Driven {
 public:
  Driven(CURLM* multi, CURL* easy) : multi_(multi), easy_(easy) {
    Check(curl_multi_add_handle(multi_, easy_));
  }
  ~Driven() { curl_multi_remove_handle(multi_, easy_); }
  Driven(const Driven&) = delete;
  Driven& operator=(const Driven&) = delete;

  // Does what can be done without waiting. The outcome, once there is one.
  [[nodiscard]] std::optional<CURLcode> Perform() const {
    int running = 0;
    Check(curl_multi_perform(multi_, &running));
    int left = 0;
    while (const CURLMsg* message = curl_multi_info_read(multi_, &left)) {
      if (message->msg == CURLMSG_DONE) return message->data.result;
    }
    return std::nullopt;
  }

  void Wait() const { Check(curl_multi_poll(multi_, nullptr, 0, kSliceMilliseconds, nullptr)); }

 private:
  CURLM* multi_;
  CURL* easy_;
};

}  // namespace

// The state of one Get; whatever ends it, the transfer is free again afterwards.
class CurlTransfer::Flight {
 public:
  Flight(CurlTransfer& transfer, int timeoutSeconds)
      : transfer_(transfer),
        shownSeconds_(std::max(timeoutSeconds, 1)),
        deadline_(SteadyClock::now() + std::chrono::seconds(shownSeconds_)) {
    transfer_.inFlight_ = true;
    transfer_.cancelled_ = false;
  }
  ~Flight() { transfer_.inFlight_ = false; }
  Flight(const Flight&) = delete;
  Flight& operator=(const Flight&) = delete;

  [[nodiscard]] CurlHop::Limits Limits() const {
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(deadline_ - SteadyClock::now());
    return {std::max(left, std::chrono::milliseconds(1)), shownSeconds_};
  }

  void Drive(const CurlHop& hop, EventPump& pump) const {
    const Driven driven(transfer_.multi_.get(), hop.Handle());
    while (true) {
      pump.Run();
      if (transfer_.cancelled_) {
        throw TransportFailure(Reason::Cancelled, "the transfer was cancelled");
      }
      if (const auto outcome = driven.Perform()) {
        hop.ThrowIfFailed(*outcome);
        return;
      }
      driven.Wait();
    }
  }

 private:
  CurlTransfer& transfer_;
  int shownSeconds_;
  SteadyClock::time_point deadline_;
};

void CurlTransfer::CloseMulti::operator()(void* multi) const { curl_multi_cleanup(multi); }

CurlTransfer::CurlTransfer(std::string userAgent) : userAgent_(std::move(userAgent)) {}

// With the first transfer: most runs of the console make none.
void CurlTransfer::SetUp() {
  if (multi_) return;
  SetUpCurlOnce();
  multi_.reset(curl_multi_init());
  if (!multi_) throw std::bad_alloc();
}

std::string CurlTransfer::Get(const TransferRequest& request, EventPump& pump) {
  if (inFlight_) throw TransportFailure(Reason::Busy, "another document is being fetched");
  RequestAddress address(request.address);
  SetUp();
  const Flight flight(*this, request.timeoutSeconds);
  for (int redirects = 0;; ++redirects) {
    CurlHop hop(address, userAgent_, flight.Limits());
    flight.Drive(hop, pump);
    const auto location = request.followRedirects ? hop.Location() : std::nullopt;
    if (!location) return hop.TakeBody();
    if (redirects == kMostRedirects) {
      throw TransportFailure(Reason::Failed, address.Host() + " redirected once too often");
    }
    address = address.Redirected(*location);
  }
}

void CurlTransfer::Cancel() { cancelled_ = inFlight_; }

}  // namespace tallyo
