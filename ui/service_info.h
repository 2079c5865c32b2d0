#pragma once

#include <cstddef>
#include <string_view>

#include "account/account_verification.h"
#include "form/main_form.h"
#include "form/shared_state.h"
#include "platform/clock.h"
#include "settings/settings.h"
#include "ui/screens.h"

namespace tallyo {

// The service info screen: ten details of the account and of what the program has done.
class ServiceInfo {
 public:
  // Connects itself to the screen's controls, which must outlive it.
  ServiceInfo(MainForm& form, const SharedState& state, Settings& settings, const Clock& clock,
              Screens& screens, AccountVerification& verification);

  // Gives the list its ten rows. To be called once.
  void BuildRows();

  // Shows the screen, asks the service for the account, and fills the rows that are this screen's.
  void ShowServiceInfo();

 private:
  void SlotsLeftChanged();
  void Show(int row, std::string_view value);

  MainForm& form_;
  const SharedState& state_;
  Settings& settings_;
  const Clock& clock_;
  Screens& screens_;
  AccountVerification& verification_;
};

}  // namespace tallyo
