#pragma once

#include "account/account_verification.h"
#include "form/main_form.h"
#include "form/shared_state.h"
#include "platform/clock.h"
#include "platform/event_pump.h"
#include "platform/message_boxes.h"
#include "settings/settings.h"
#include "stats/service_requests.h"
#include "stats/statistics_refresh.h"

namespace tallyo {

// Decides at every tick of the window's timer whether a refresh is due, and keeps the ages of the
// data on the screen. Carries the time of the last acquisition over a restart on the same day.
class RefreshScheduler {
 public:
  RefreshScheduler(MainForm& form, SharedState& state, Settings& settings, const Clock& clock,
                   EventPump& pump, const MessageBoxes& boxes, const ServiceRequests& requests,
                   AccountVerification& verification, StatisticsRefresh& refresh)
      : form_(form),
        state_(state),
        settings_(settings),
        clock_(clock),
        pump_(pump),
        boxes_(boxes),
        requests_(requests),
        verification_(verification),
        refresh_(refresh) {}

  // Ticks before this are dropped.
  void Begin() { begun_ = true; }

  // One tick. It is dropped while a message box is open and inside another tick, refresh or fetch.
  void OnTimerTick();

  void RestoreLastCheckTime();
  void SaveLastCheckTime();

 private:
  void Tick();
  void ShowTitle();
  [[nodiscard]] bool RefreshIsDue(double intervalSeconds) const;
  void ShowAges(double intervalSeconds);

  MainForm& form_;
  SharedState& state_;
  Settings& settings_;
  const Clock& clock_;
  EventPump& pump_;
  const MessageBoxes& boxes_;
  const ServiceRequests& requests_;
  AccountVerification& verification_;
  StatisticsRefresh& refresh_;
  bool begun_ = false;
  bool ticking_ = false;
};

}  // namespace tallyo
