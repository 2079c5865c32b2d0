#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "form/main_form.h"
#include "form/shared_state.h"
#include "platform/event_pump.h"
#include "platform/http_transfer.h"

namespace tallyo {

// The states of a transfer that the program acts on; it ignores all others.
enum class TransferState : std::int16_t { ResolvingHost = 1, Error = 11 };

// The one door to the service. One document at a time is fetched; while it comes in, the window's
// events run, so that a second fetch may be asked for inside the first: it is refused at once.
class ServiceRequests {
 public:
  ServiceRequests(MainForm& form, const SharedState& state, HttpTransfer& transfer, EventPump& pump)
      : form_(form), state_(state), transfer_(transfer), pump_(pump) {}

  // The whole body of the document at an address, whatever the answer's status. Throws
  // TransportFailure. An address that cannot be sent and a fetch inside another fail before
  // anything is reported or sent.
  [[nodiscard]] std::string FetchDocument(const std::string& url);

  // Writes what a state means into the window and lets pending events run.
  void OnTransferStateChanged(std::int16_t state);

  // Ends the fetch in flight, if any, for good: it reports no error.
  void CancelTransfers();

  // Gives up the fetch in flight, if any, as its person asked for it; nothing else changes.
  void StopFetch();

  [[nodiscard]] bool InFlight() const { return inFlight_; }

  // Runs when a fetch has begun, before anything is waited for.
  std::function<void()> OnBegun;

  // Seconds that the next transfer may take: one more with every transfer begun, 60 again after an
  // error.
  [[nodiscard]] std::int32_t TransferTimeout() const { return transferTimeout_; }

  // Why the last fetch failed, as a plain sentence; "" where it did not.
  [[nodiscard]] const std::string& LastFailure() const { return lastFailure_; }

  // The address of a script of the service with its query, which goes in as it stands.
  [[nodiscard]] std::string ScriptAddress(std::string_view scriptAndQuery) const;

  // The address of a document under the program's own folder on the service.
  [[nodiscard]] std::string DocumentAddress(std::string_view path) const;

 private:
  [[nodiscard]] std::string Fetch(const std::string& url);
  void SetDetail(int row, std::string_view text);

  MainForm& form_;
  const SharedState& state_;
  HttpTransfer& transfer_;
  EventPump& pump_;
  std::int32_t transferTimeout_ = 60;
  bool inFlight_ = false;
  bool stopAsked_ = false;
  std::string lastFailure_;
};

}  // namespace tallyo
