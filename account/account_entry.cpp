#include "account/account_entry.h"

#include <string>

#include "settings/names.h"

namespace tallyo {

void AccountEntry::LoadAccount() {
  form_.Text1[field::kCompany].SetText(settings_.Get(names::kUser));
  form_.Text1[field::kAccount].SetText(settings_.Get(names::kAccount));
}

bool AccountEntry::SaveAccount() {
  // The boxes may be typed into while the service is asked; what it accepted is what is stored.
  const std::string company = form_.Text1[field::kCompany].Text();
  const std::string account = form_.Text1[field::kAccount].Text();
  if (!verification_.VerifyAccount()) {
    return false;
  }
  form_.mnuSave.SetEnabled(false);
  settings_.Store().AsOneChange([&] {
    settings_.Set(names::kUser, company);
    settings_.Set(names::kAccount, account);
  });
  boxes_.Show(
      {.text = "Welcome " + company + " Your account information has been saved", .title = ""});
  form_.SetFocus(form_.Text1[field::kLinkPath]);
  return true;
}

void AccountEntry::CheckAccountSet(std::int16_t& count) {
  for (const std::string_view name : {names::kUser, names::kAccount}) {
    if (!settings_.Get(name).empty()) {
      ++count;
    }
  }
  const bool set = count == 2;
  form_.mnuViewStats.SetEnabled(set);
  form_.mnuUpgrade.SetEnabled(set);
  if (!set) {
    form_.ListView3.SetValue(detail::kAccountStatus, 1, "No account set");
  }
}

}  // namespace tallyo
