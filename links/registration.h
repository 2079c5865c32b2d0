#pragma once

#include <functional>
#include <string>

#include "form/main_form.h"
#include "links/link_record.h"
#include "links/monitored_links.h"
#include "platform/message_boxes.h"
#include "stats/service_requests.h"
#include "stats/traffic_totals.h"

namespace tallyo {

// What the service said of a request to add or remove a link.
enum class RegistrationAnswer {
  Done,
  EntryExists,  // the account has this reference already
  LinkExists,   // the address is registered already
  Refused,      // any other answer
  NoAnswer,     // the request could not be sent or was not answered
};

// Registers and unregisters the link that stands in the fields of the manage-links screen. The
// service is asked first; the local list changes only when it has said ok, and with the texts that
// were asked for, whatever the fields hold by then.
class LinkRegistration {
 public:
  LinkRegistration(MainForm& form, ServiceRequests& requests, TrafficTotals& traffic,
                   MonitoredLinks& links, MessageBoxes& boxes)
      : form_(form), requests_(requests), traffic_(traffic), links_(links), boxes_(boxes) {}

  RegistrationAnswer RegisterLinkOnService();
  RegistrationAnswer UnregisterLinkOnService();

  // Told before the local list loses a link.
  std::function<void()> BeforeRemoval;

  // No action is pending any more: Submit is disabled, the pending action emptied.
  void EndLinkAction();

 private:
  // The texts of a request, as they stood in the fields when it began.
  struct Request {
    std::string account;
    std::string listedName;  // the text of Combo1
    LinkFields fields;
  };

  [[nodiscard]] Request ReadFields() const;

  // The service's answer to "add" or "del"; nothing where none came. Counts the traffic.
  [[nodiscard]] std::string Ask(const Request& request, const std::string& verb, bool& answered);

  MainForm& form_;
  ServiceRequests& requests_;
  TrafficTotals& traffic_;
  MonitoredLinks& links_;
  MessageBoxes& boxes_;
};

}  // namespace tallyo
