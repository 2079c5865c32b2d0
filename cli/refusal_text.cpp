#include "cli/refusal_text.h"

namespace tallyo {

std::string WhyAccountRefused(const Program& program) {
  switch (program.verification.LastRefusal()) {
    case AccountRefusal::None:
      return "";
    case AccountRefusal::NotReached:
      return program.requests.LastFailure();
    case AccountRefusal::NotFound:
      return "the service does not know the account " + program.form.Text1[field::kAccount].Text();
    case AccountRefusal::Unreadable:
      return "the service's record of the account cannot be read";
    case AccountRefusal::NoSlots:
      return "the account has no link slots";
    case AccountRefusal::Expired:
      return "the account is no longer good (good through " + program.form.Label4[1].Caption() +
             ")";
    case AccountRefusal::Banned:
      return "the account is suspended";
    case AccountRefusal::OtherCompany:
      return "the account belongs to another company";
    case AccountRefusal::OtherAccount:
      return "the service's record is of another account";
  }
  return "";
}

std::string WhyNotRefreshed(const Program& program, RefreshOutcome outcome) {
  switch (outcome) {
    case RefreshOutcome::Completed:
      return "";
    case RefreshOutcome::Busy:
      return "a refresh is under way already";
    case RefreshOutcome::NoAccount:
      return "no account is set; see 'tallyo-cli account save'";
    case RefreshOutcome::NoLinks:
      return "no links are monitored; see 'tallyo-cli links add'";
    case RefreshOutcome::AccountRefused:
      return WhyAccountRefused(program);
    case RefreshOutcome::NoSlotsLeft:
      return "the account has no slots left, and such an account is not refreshed";
    case RefreshOutcome::NotReached:
      return program.requests.LastFailure();
    case RefreshOutcome::Stopped:
      return "the counters could not be read to their end";
  }
  return "";
}

std::string WhyNotRegistered(const Program& program, RegistrationAnswer answer) {
  switch (answer) {
    case RegistrationAnswer::Done:
      return "";
    case RegistrationAnswer::EntryExists:
      return "the service has this reference already; nothing was changed";
    case RegistrationAnswer::LinkExists:
      return "the service has this link already; nothing was changed";
    case RegistrationAnswer::Refused:
      return "the service refused; nothing was changed";
    case RegistrationAnswer::NoAnswer:
      return program.requests.LastFailure() + "; nothing was changed";
  }
  return "";
}

}  // namespace tallyo
