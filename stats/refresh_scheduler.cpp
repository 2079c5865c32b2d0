#include "stats/refresh_scheduler.h"

#include <cmath>
#include <string>

#include "platform/raised_flag.h"
#include "settings/names.h"
#include "stats/refresh_interval.h"
#include "text/decimal_text.h"
#include "text/integers.h"
#include "text/leading_number.h"
#include "text/runtime_error.h"

namespace tallyo {
namespace {

std::string WholeMinutes(double seconds) { return DecimalText(std::floor(seconds / 60)); }

}  // namespace

void RefreshScheduler::OnTimerTick() {
  if (!begun_ || ticking_ || boxes_.Open() || refresh_.Running() || requests_.InFlight()) {
    return;
  }
  const RaisedFlag ticking(ticking_);
  Tick();
}

void RefreshScheduler::Tick() {
  if (form_.Combo1.Count() == 0) {
    return;
  }
  if (form_.ListView3.Value(detail::kSlotsLeft, 1).empty() && !verification_.VerifyAccount()) {
    return;
  }
  if (static_cast<double>(state_.LastCheckTime) >= ComparableNow(clock_.Now())) {
    state_.LastCheckTime = 0;  // a new day has begun, or the clock was set back
  }
  const double interval = RefreshIntervalSeconds(form_.Text2.Text());
  ShowTitle();
  pump_.Run();
  if (RefreshIsDue(interval)) {
    refresh_.RefreshStatistics();
  }
  if (form_.Combo1.Count() != 0) {
    ShowAges(interval);
  }
}

void RefreshScheduler::ShowTitle() {
  std::string title(names::AppTitle);
  if (form_.Picture1[screen::kDailyStatus].Visible()) {
    const LocalTime now = clock_.Now();
    title += " - " + LongDate(now.date) + " " + ClockText(now);
  }
  form_.Frame.SetCaption(title);
}

bool RefreshScheduler::RefreshIsDue(double intervalSeconds) const {
  const auto last = static_cast<double>(state_.LastCheckTime);
  return ComparableNow(clock_.Now()) - last >= intervalSeconds || last == 0;
}

void RefreshScheduler::ShowAges(double intervalSeconds) {
  const auto last = static_cast<double>(state_.LastCheckTime);
  if (last <= 0) {
    form_.ListView3.SetValue(detail::kNextCheck, 1, "on connect");
    form_.ListView3.SetValue(detail::kLastCheck, 1, "Unknown");
    return;
  }
  const double now = ComparableNow(clock_.Now());
  const std::string age = WholeMinutes(now - last);
  form_.ListView3.SetValue(detail::kNextCheck, 1,
                           "~ " + WholeMinutes(last + intervalSeconds - now) + " minutes");
  form_.ListView3.SetValue(detail::kLastCheck, 1, "~ " + age + " minutes ago");
  form_.Label8.SetCaption("Data last acquired " + age + " minutes ago");
}

void RefreshScheduler::RestoreLastCheckTime() {
  const std::string text = settings_.Get(names::kPrevCheck);
  const std::size_t blank = text.find(' ');
  if (blank == std::string::npos || text.substr(0, blank) != MonthDayYear(clock_.Now().date)) {
    return;
  }
  try {
    state_.LastCheckTime = ToSingle(LeadingNumber(std::string_view(text).substr(blank + 1)));
  } catch (const RuntimeError&) {
    return;  // no time of any day
  }
}

void RefreshScheduler::SaveLastCheckTime() {
  settings_.Set(names::kPrevCheck,
                MonthDayYear(clock_.Now().date) + " " + SingleDecimalText(state_.LastCheckTime));
}

}  // namespace tallyo
