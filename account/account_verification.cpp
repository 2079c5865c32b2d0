#include "account/account_verification.h"

#include <cstdint>
#include <optional>

#include "platform/raised_flag.h"
#include "platform/transport_failure.h"
#include "settings/names.h"
#include "text/decimal_text.h"
#include "text/integers.h"
#include "text/leading_number.h"
#include "text/runtime_error.h"

namespace tallyo {

bool AccountVerification::VerifyAccount() {
  const Pair typed{form_.Text1[field::kCompany].Text(), form_.Text1[field::kAccount].Text()};
  if (typed.account.empty()) {
    refusal_ = AccountRefusal::None;
    return true;
  }
  if (verifying_ || requests_.InFlight()) {
    return false;
  }
  const RaisedFlag verifying(verifying_);
  refusal_ = AccountRefusal::None;
  try {
    const std::string record = FetchRecord(typed.account);
    if (record.empty() || record.find("404") != std::string::npos) {
      NotFound();
    } else {
      ReadRecord(record, typed);
    }
  } catch (const TransportFailure&) {
    Refuse(AccountRefusal::NotReached);
    return false;
  } catch (const RuntimeError&) {
    Refuse(AccountRefusal::Unreadable);
    return false;
  }
  form_.TmnuDisTitle.SetCaption(std::string(8, ' ') + std::string(names::AppTitle) +
                                "  user: " + typed.company + ", account: " + typed.account);
  return refusal_ == AccountRefusal::None;
}

std::string AccountVerification::FetchRecord(const std::string& account) {
  const std::string path = "accounts/" + account + ".txt";
  std::string record = requests_.FetchDocument(requests_.DocumentAddress(path));
  traffic_.AddExchange(path, record);
  return record;
}

void AccountVerification::ReadRecord(std::string_view record, const Pair& typed) {
  AccountRecord pairs(record);
  while (const std::optional<AccountPair> pair = pairs.Next()) {
    Act(*pair, typed);
  }
  form_.mnuManage.SetEnabled(true);
  if (!form_.Text1[field::kLinkPath].Text().empty()) {
    form_.mnuScrnImport.SetEnabled(true);
  }
  form_.ListView3.SetValue(detail::kOtherStatus, 1, "");
}

void AccountVerification::Act(const AccountPair& pair, const Pair& typed) {
  if (pair.key == "opn") {
    settings_.Set(names::kAccOpen, pair.value);
  } else if (pair.key == "max") {
    ActOnQuota(pair.value);
  } else if (pair.key == "exp") {
    ActOnGoodThrough(pair.value);
  } else if (pair.key == "ban") {
    ActOnBan(pair.value);
  } else if (pair.key == "com" && pair.value != typed.company) {
    // The two messages stand crossed on purpose: this is what people know them by.
    Refuse(AccountRefusal::OtherCompany);
    boxes_.Show(
        {.text = "This account does not belong to the registration number supplied", .title = ""});
  } else if (pair.key == "acc" && pair.value != typed.account) {
    Refuse(AccountRefusal::OtherAccount);
    boxes_.Show({.text = "This account does not belong to the supplied company name", .title = ""});
  }
}

void AccountVerification::ActOnQuota(std::string_view value) {
  const double quota = LeadingNumber(value);
  form_.Label4[0].SetCaption(DecimalText(quota - form_.Combo1.Count()));
  state_.MaxSlots = ToInt16(quota);
  if (state_.MaxSlots < 1) {
    Refuse(AccountRefusal::NoSlots);
  }
}

void AccountVerification::ActOnGoodThrough(std::string_view value) {
  form_.Label4[1].SetCaption(std::string(value));
  // The last good day itself is refused already.
  if (DaysBetween(clock_.Now().date, SlashDate(value)) < 1) {
    Refuse(AccountRefusal::Expired);
  }
}

void AccountVerification::ActOnBan(std::string_view value) {
  if (value == "no") {
    form_.ListView3.SetValue(detail::kAccountStatus, 1, "Normal");
    return;
  }
  Refuse(AccountRefusal::Banned);
  boxes_.Show({.text = "This account is banned. All access is forbiden", .title = ""});
  form_.ListView3.SetValue(detail::kAccountStatus, 1, "Account Suspended");
}

void AccountVerification::NotFound() {
  form_.Label8.SetCaption("Account not found");
  Refuse(AccountRefusal::NotFound);
  form_.mnuManage.SetEnabled(false);
  form_.mnuScrnImport.SetEnabled(false);
}

}  // namespace tallyo
