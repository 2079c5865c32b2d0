#pragma once

#include <string>
#include <string_view>

#include "account/account_record.h"
#include "form/main_form.h"
#include "form/shared_state.h"
#include "platform/clock.h"
#include "platform/message_boxes.h"
#include "settings/settings.h"
#include "stats/service_requests.h"
#include "stats/traffic_totals.h"

namespace tallyo {

// Why an account was refused; where several reasons hold, the last one found.
enum class AccountRefusal {
  None,
  NotReached,  // the service could not be asked
  NotFound,
  Unreadable,  // the record is broken
  NoSlots,
  Expired,
  Banned,
  OtherCompany,
  OtherAccount,
};

// Asks the service for the account's record, checks it against what the person typed, and puts the
// account's terms into the window.
class AccountVerification {
 public:
  AccountVerification(MainForm& form, SharedState& state, Settings& settings,
                      ServiceRequests& requests, TrafficTotals& traffic, const Clock& clock,
                      MessageBoxes& boxes)
      : form_(form),
        state_(state),
        settings_(settings),
        requests_(requests),
        traffic_(traffic),
        clock_(clock),
        boxes_(boxes) {}

  // Whether the account may be used. Without an account name it may, and nothing is asked. A
  // failure on the way gives false, silently, and leaves what was set until then. Asked from inside
  // a fetch or another check it gives false at once and disturbs neither.
  bool VerifyAccount();

  // What the last call found.
  [[nodiscard]] AccountRefusal LastRefusal() const { return refusal_; }

 private:
  // What stood in the boxes when the check began.
  struct Pair {
    std::string company;
    std::string account;
  };

  [[nodiscard]] std::string FetchRecord(const std::string& account);
  void ReadRecord(std::string_view record, const Pair& typed);
  void Act(const AccountPair& pair, const Pair& typed);
  void ActOnQuota(std::string_view value);
  void ActOnGoodThrough(std::string_view value);
  void ActOnBan(std::string_view value);
  void NotFound();
  void Refuse(AccountRefusal why) { refusal_ = why; }

  MainForm& form_;
  SharedState& state_;
  Settings& settings_;
  ServiceRequests& requests_;
  TrafficTotals& traffic_;
  const Clock& clock_;
  MessageBoxes& boxes_;
  AccountRefusal refusal_ = AccountRefusal::None;
  bool verifying_ = false;
};

}  // namespace tallyo
