#include "stats/service_requests.h"

#include "platform/raised_flag.h"
#include "platform/transport_failure.h"
#include "settings/names.h"

namespace tallyo {
namespace {

constexpr std::string_view kScriptDir = "cgi-bin/Tallyo/";

}  // namespace

std::string ServiceRequests::FetchDocument(const std::string& url) {
  if (inFlight_) {
    throw TransportFailure(TransportFailure::Reason::Busy, "another document is being fetched");
  }
  const RaisedFlag busy(inFlight_);
  lastFailure_.clear();
  try {
    CheckAddress(url);
    return Fetch(url);
  } catch (const TransportFailure& failure) {
    lastFailure_ = failure.what();
    if (failure.Why() == TransportFailure::Reason::Failed) {
      OnTransferStateChanged(static_cast<std::int16_t>(TransferState::Error));
    }
    throw;
  }
}

std::string ServiceRequests::Fetch(const std::string& url) {
  stopAsked_ = false;
  if (OnBegun) {
    OnBegun();
  }
  OnTransferStateChanged(static_cast<std::int16_t>(TransferState::ResolvingHost));
  if (stopAsked_) {  // by an event that ran just now
    throw TransportFailure(TransportFailure::Reason::Cancelled, "the fetch was given up");
  }
  return transfer_.Get({.address = url,
                        .timeoutSeconds = transferTimeout_,
                        .followRedirects = !url.starts_with(state_.ServiceBaseUrl)},
                       pump_);
}

void ServiceRequests::OnTransferStateChanged(std::int16_t state) {
  if (state == static_cast<std::int16_t>(TransferState::ResolvingHost)) {
    form_.Label8.SetCaption("Request Time out");
    ++transferTimeout_;
    SetDetail(detail::kOtherStatus, "Not connected");
    SetDetail(detail::kAccountStatus, "Unknown");
  } else if (state == static_cast<std::int16_t>(TransferState::Error)) {
    form_.Label8.SetCaption("Request Time out");
    transfer_.Cancel();
    transferTimeout_ = 60;
    SetDetail(detail::kOtherStatus, "Connecting");
  }
  pump_.Run();
}

void ServiceRequests::CancelTransfers() {
  transferTimeout_ = 1;
  StopFetch();
}

void ServiceRequests::StopFetch() {
  stopAsked_ = true;
  transfer_.Cancel();
}

std::string ServiceRequests::ScriptAddress(std::string_view scriptAndQuery) const {
  return state_.ServiceBaseUrl + std::string(kScriptDir) + std::string(scriptAndQuery);
}

std::string ServiceRequests::DocumentAddress(std::string_view path) const {
  return state_.ServiceBaseUrl + std::string(names::AppTitle) + "/" + std::string(path);
}

void ServiceRequests::SetDetail(int row, std::string_view text) {
  form_.ListView3.SetValue(row, 1, text);
}

}  // namespace tallyo
