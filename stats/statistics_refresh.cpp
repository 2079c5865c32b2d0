#include "stats/statistics_refresh.h"

#include <cstdint>
#include <span>

#include "platform/raised_flag.h"
#include "platform/transport_failure.h"
#include "stats/counter_walk.h"
#include "stats/refresh_interval.h"
#include "stats/statistics_reply.h"
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
  traffic_.AddExchange(query, reply);
  return reply;
}

bool StatisticsRefresh::ReadReply(std::string_view text) {
  StatisticsReply reply(text);
  CounterWalk walk(
      form_, state_, clock_, links_, dailyFiles_,
      [this](std::span<const DailyCount> counts) { snapshot_.KeepForRecovery(counts); },
      [this](const std::string& name) { snapshot_.NoteWritten(name); });
  for (;;) {
    switch (reply.Next()) {
      case StatisticsReply::Step::End:
        return true;
      case StatisticsReply::Step::Malformed:
        return false;
      case StatisticsReply::Step::Record:
        walk.Take(reply.Counter(), reply.Reference());
        break;
    }
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
