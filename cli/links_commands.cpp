#include "cli/links_commands.h"

#include <ostream>

#include "cli/refusal_text.h"
#include "cli/sessions.h"
#include "cli/table.h"
#include "links/link_record.h"
#include "links/stored_records.h"
#include "text/leading_number.h"
#include "text/two_digits.h"

namespace tallyo {
namespace {

void PrintRecords(const Console& console, SettingsStore& store) {
  Table table({{"No.", "number", Align::Right},
               {"KB", "size_kb", Align::Right},
               {"Name", "name"},
               {"Reference", "reference"},
               {"Path", "path"}});
  int number = 0;
  for (const std::string& text : StoredRecords(store)) {
    if (!ListedName(text)) {
      break;
    }
    const LinkRecord record = SplitRecord(text);
    std::vector<std::string> cells = {TwoDigits(++number)};
    for (const auto& part : record.fields) {
      cells.emplace_back(part.value_or(""));
    }
    table.AddRow(std::move(cells));
  }
  table.Print(console, "No links are monitored.");
}

bool HasComma(const std::string& text) { return text.find(',') != std::string::npos; }

// What the window takes without a word and what would then break the list of links.
std::string WhyNotAddable(const Program& program, const NewLink& link) {
  if (link.path.empty() || link.name.empty()) {
    return "path and name must not be empty";
  }
  if (HasComma(link.path) || HasComma(link.name) || HasComma(link.sizeKb) ||
      HasComma(link.reference.value_or(""))) {
    return "a link's path, name, reference and size must not hold a comma";
  }
  const ComboBox& listed = program.form.Combo1;
  if (listed.Find(link.name) < listed.Count()) {
    return "a link named " + link.name + " is monitored already";
  }
  return "";
}

void FillFields(Program& program, const NewLink& link) {
  auto& fields = program.form.Text1;
  program.screens.ShowScreen(screen::kManageLinks);
  fields[field::kLinkPath].SetText(link.path);
  fields[field::kLinkPath].LostFocus();  // proposes the reference
  if (link.reference) {
    fields[field::kReference].SetText(*link.reference);
  }
  fields[field::kFriendlyName].SetText(link.name);
  fields[field::kSizeKb].SetText(link.sizeKb);
}

std::string WhyNotOffered(const Program& program) {
  if (program.form.Text1[field::kAccount].Text().empty()) {
    return "no account is set; see 'tallyo-cli account save'";
  }
  const std::string refused = WhyAccountRefused(program);
  return refused.empty() ? "the account has no slots left" : refused;
}

// Chooses an action label as the pointer does, and submits.
ExitStatus Submit(Console& console, Program& program, std::size_t actionLabel) {
  Label& label = program.form.Label2[actionLabel];
  label.MouseMove();
  label.Click();
  const Button& submit = program.form.Command1[1];
  if (!submit.Enabled()) {
    return Refuse(console, WhyNotOffered(program));
  }
  submit.Click();
  const std::string why = WhyNotRegistered(program, program.manageLinks.LastAnswer());
  return why.empty() ? ExitStatus::Done : Refuse(console, why);
}

// In JSON a change answers with the list that it leaves.
ExitStatus RunAndList(Console& console, const std::function<ExitStatus(Program&)>& work) {
  return RunChanging(console, work, [&](Program& program) {
    if (console.options.json) {
      PrintRecords(console, program.settings.Store());
    }
  });
}

}  // namespace

ExitStatus LinksList(Console& console) {
  return RunOnStore(console, StoreAccess::ReadOnly, [&](SqliteStore& store) {
    PrintRecords(console, store);
    return ExitStatus::Done;
  });
}

ExitStatus LinksAdd(Console& console, const NewLink& link) {
  return RunAndList(console, [&](Program& program) {
    const std::string why = WhyNotAddable(program, link);
    if (!why.empty()) {
      return Refuse(console, why);
    }
    FillFields(program, link);
    return Submit(console, program, action::kAdd);
  });
}

ExitStatus LinksRemove(Console& console, const std::string& name) {
  return RunAndList(console, [&](Program& program) {
    ComboBox& listed = program.form.Combo1;
    const int item = listed.Find(name);
    if (item == listed.Count()) {
      return Refuse(console, "no link is named " + name);
    }
    program.screens.ShowScreen(screen::kManageLinks);
    listed.Choose(item);
    return Submit(console, program, action::kRemove);
  });
}

}  // namespace tallyo
