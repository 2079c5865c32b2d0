#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "account/account_entry.h"
#include "account/account_verification.h"
#include "form/main_form.h"
#include "form/shared_state.h"
#include "links/monitored_links.h"
#include "platform/clock.h"
#include "stats/daily_files.h"
#include "stats/service_requests.h"
#include "stats/snapshot.h"
#include "stats/traffic_totals.h"

namespace tallyo {

// How a refresh ended.
enum class RefreshOutcome {
  Completed,
  Busy,            // a refresh or a fetch is under way already
  NoAccount,       // no account is stored
  NoLinks,         // no link is monitored
  AccountRefused,  // AccountVerification::LastRefusal tells why
  NoSlotsLeft,     // an account that has used up its slots is not refreshed
  NotReached,      // the counters could not be fetched
  Stopped,         // the reply or the stored links could not be read to their end
};

// Fetches the counters of all links and brings the current status, the daily files, the snapshot
// and LastCheckTime up to date. The person is told nothing but what the account's check says.
class StatisticsRefresh {
 public:
  StatisticsRefresh(MainForm& form, SharedState& state, const Clock& clock,
                    ServiceRequests& requests, TrafficTotals& traffic, AccountEntry& account,
                    AccountVerification& verification, MonitoredLinks& links,
                    DailyFiles& dailyFiles, Snapshot& snapshot)
      : form_(form),
        state_(state),
        clock_(clock),
        requests_(requests),
        traffic_(traffic),
        account_(account),
        verification_(verification),
        links_(links),
        dailyFiles_(dailyFiles),
        snapshot_(snapshot) {}

  RefreshOutcome RefreshStatistics();

  // Told how each refresh ended that was not refused for being busy.
  std::function<void(RefreshOutcome)> OnFinished;

  [[nodiscard]] bool Running() const { return running_; }

 private:
  [[nodiscard]] RefreshOutcome Run();
  [[nodiscard]] RefreshOutcome PassGates();
  [[nodiscard]] std::string FetchReply();
  // False where the reply ends the refresh at once.
  [[nodiscard]] bool ReadReply(std::string_view reply);
  void Stamp();

  MainForm& form_;
  SharedState& state_;
  const Clock& clock_;
  ServiceRequests& requests_;
  TrafficTotals& traffic_;
  AccountEntry& account_;
  AccountVerification& verification_;
  MonitoredLinks& links_;
  DailyFiles& dailyFiles_;
  Snapshot& snapshot_;
  bool running_ = false;
};

}  // namespace tallyo
