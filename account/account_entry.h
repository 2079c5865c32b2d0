#pragma once

#include <cstdint>

#include "account/account_verification.h"
#include "form/main_form.h"
#include "platform/message_boxes.h"
#include "settings/settings.h"

namespace tallyo {

// Entering the account: the pair of company and account name that the person typed.
class AccountEntry {
 public:
  AccountEntry(MainForm& form, Settings& settings, AccountVerification& verification,
               MessageBoxes& boxes)
      : form_(form), settings_(settings), verification_(verification), boxes_(boxes) {}

  // Puts the stored pair into the boxes.
  void LoadAccount();

  // Stores the pair in the boxes if the service accepts it; true where it was stored.
  bool SaveAccount();

  // Adds to count one for each stored half of the pair, and enables or disables what needs both.
  void CheckAccountSet(std::int16_t& count);

 private:
  MainForm& form_;
  Settings& settings_;
  AccountVerification& verification_;
  MessageBoxes& boxes_;
};

}  // namespace tallyo
