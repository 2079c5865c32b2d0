#include "stats/statistics_refresh.h"

#include <cstdint>

#include "platform/raised_flag.h"
#include "platform/transport_failure.h"
#include "stats/refresh_interval.h"
#include "stats/statistics_reply.h"
#include "text/decimal_text.h"
#include "text/integers.h"
#include "text/leading_number.h"
#include "text/runtime_error.h"

namespace tallyo {

RefreshOutcome StatisticsRefresh::RefreshStatistics() {
  if (running_ || requests_.InFlight()) {
    return RefreshOutcome::Busy;
  }
  RefreshOutcome outcome{};
  {
    const RaisedFlag running(running_);
    outcome = Run();
  }
  if (OnFinished) {
    OnFinished(outcome);
  }
  return outcome;
}

RefreshOutcome StatisticsRefresh::Run() {
  const RefreshOutcome gates = PassGates();
  if (gates != RefreshOutcome::Completed) {
    return gates;
  }
  try {
    const std::string reply = FetchReply();
    if (!ReadReply(reply)) {
      return RefreshOutcome::Stopped;
    }
    // First, so that a kill between the two leaves the older counters rather than none.
    snapshot_.KeepForRecovery();
    snapshot_.ApplySnapshot();
    Stamp();
    return RefreshOutcome::Completed;
  } catch (const TransportFailure&) {
    return RefreshOutcome::NotReached;
  } catch (const RuntimeError&) {
    return RefreshOutcome::Stopped;
  }
}

RefreshOutcome StatisticsRefresh::PassGates() {
  std::int16_t count = 0;
  account_.CheckAccountSet(count);
  if (count != 2) {
    return RefreshOutcome::NoAccount;
  }
  if (form_.Combo1.Count() == 0) {
    return RefreshOutcome::NoLinks;
  }
  if (!verification_.VerifyAccount()) {
    return RefreshOutcome::AccountRefused;
  }
  if (LeadingNumber(form_.Label4[0].Caption()) == 0) {
    return RefreshOutcome::NoSlotsLeft;
  }
  return RefreshOutcome::Completed;
}

std::string StatisticsRefresh::FetchReply() {
  const std::string query =
      "devstats.cgi?account=" + form_.Text1[field::kAccount].Text() + ".txt&action=show";
  std::string reply = requests_.FetchDocument(requests_.ScriptAddress(query));
  traffic_.AddTransferredBytes(static_cast<std::int32_t>(query.size()), detail::kBytesSession);
  traffic_.AddTransferredBytes(static_cast<std::int32_t>(reply.size()), detail::kBytesSession);
  return reply;
}

bool StatisticsRefresh::ReadReply(std::string_view text) {
  StatisticsReply reply(text);
  LinkFields fields;
  // Lives for the whole reply: the growth of a link without a row is measured against the old
  // counter of the record before it.
  std::string oldCounter;
  for (;;) {
    switch (reply.Next()) {
      case StatisticsReply::Step::End:
        return true;
      case StatisticsReply::Step::Malformed:
        return false;
      case StatisticsReply::Step::Record:
        break;
    }
    if (links_.FindMonitoredLink(fields, reply.Reference(), FindBy::Reference).found) {
      TakeCounter(fields, reply.Counter(), oldCounter);
      BookGrowth(fields[linkfield::kFriendlyName], reply.Counter(), oldCounter);
    }
  }
}

void StatisticsRefresh::TakeCounter(const LinkFields& fields, std::string_view counter,
                                    std::string& oldCounter) {
  ReportList& list = form_.ListView1;
  const std::string& name = fields[linkfield::kFriendlyName];
  const std::vector<int>& rows = list.RowsNamed(name);
  if (rows.empty()) {
    list.AddRow(name);
    list.SetValue(list.RowCount(), 1, DecimalText(LeadingNumber(counter)));
    list.SetValue(list.RowCount(), 3, fields[linkfield::kLinkPath]);
    return;
  }
  const int row = rows.front();
  oldCounter = list.Value(row, 1);
  list.SetValue(row, 1, std::string(counter));
  list.SetValue(row, 2, DecimalText(LeadingNumber(counter) - LeadingNumber(oldCounter)));
}

void StatisticsRefresh::BookGrowth(const std::string& name, std::string_view counter,
                                   std::string_view oldCounter) {
  const double interval = RefreshIntervalSeconds(form_.Text2.Text());
  const double sinceLast = ComparableNow(clock_.Now()) - static_cast<double>(state_.LastCheckTime);
  if (sinceLast < interval && state_.LastCheckTime != 0) {
    return;
  }
  const std::int16_t growth = ToInt16(LeadingNumber(counter) - LeadingNumber(oldCounter));
  if (growth > 0 && dailyFiles_.WriteDailyCount(growth, name)) {
    snapshot_.NoteWritten(name);
  }
}

void StatisticsRefresh::Stamp() {
  form_.Label8.SetCaption("Data acquired at " + ClockText(clock_.Now()));
  const double now = ComparableNow(clock_.Now());
  if (now - static_cast<double>(state_.LastCheckTime) >= 60) {
    state_.LastCheckTime = static_cast<float>(now);
  }
}

}  // namespace tallyo
