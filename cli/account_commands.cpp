#include "cli/account_commands.h"

#include <ostream>

#include "cli/json_output.h"
#include "cli/refusal_text.h"
#include "cli/safe_text.h"
#include "cli/sessions.h"
#include "settings/names.h"

namespace tallyo {
namespace {

void PrintAccount(const Console& console, const std::string& company, const std::string& account) {
  if (console.options.json) {
    PrintDocument(console.out, {{"company", JsonText(company)}, {"account", JsonText(account)}});
  } else if (company.empty() && account.empty()) {
    console.out << "No account is set.\n";
  } else {
    console.out << "Company  " << OneLine(company) << "\nAccount  " << OneLine(account) << '\n';
  }
}

ExitStatus Save(Console& console, Program& program, const std::string& company,
                const std::string& account) {
  TextBox& companyBox = program.form.Text1[field::kCompany];
  TextBox& accountBox = program.form.Text1[field::kAccount];
  const bool samePair = companyBox.Text() == company && accountBox.Text() == account;
  if (company.empty() || account.empty()) {
    return Refuse(console, "company and account must not be empty");
  }
  if (program.form.Combo1.Count() > 0 && !samePair) {
    return Refuse(console, "the account cannot be changed while links are monitored");
  }
  companyBox.SetText(company);
  accountBox.SetText(account);
  if (!program.account.SaveAccount()) {
    return Refuse(console, WhyAccountRefused(program));
  }
  if (program.settings.Get(names::kUser) != company ||
      program.settings.Get(names::kAccount) != account) {
    return Refuse(console, "the account could not be stored");
  }
  return ExitStatus::Done;
}

}  // namespace

ExitStatus AccountSave(Console& console, const std::string& company, const std::string& account) {
  return RunChanging(
      console, [&](Program& program) { return Save(console, program, company, account); },
      [&](Program& program) {
        if (console.options.json) {
          PrintAccount(console, program.settings.Get(names::kUser),
                       program.settings.Get(names::kAccount));
        }
      });
}

ExitStatus AccountShow(Console& console) {
  return RunOnStore(console, StoreAccess::ReadOnly, [&](SqliteStore& store) {
    const Settings settings(store);
    PrintAccount(console, settings.Get(names::kUser), settings.Get(names::kAccount));
    return ExitStatus::Done;
  });
}

}  // namespace tallyo
