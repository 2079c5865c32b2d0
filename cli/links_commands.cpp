#include "cli/links_commands.h"

#include <ostream>

#include "cli/json_output.h"
#include "cli/safe_text.h"
#include "cli/sessions.h"
#include "cli/table.h"
#include "links/link_record.h"
#include "links/stored_records.h"
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

// In JSON a change answers with the list that it leaves.
ExitStatus RunAndList(Console& console, const std::function<std::string(Program&)>& work) {
  return RunChanging(
      console,
      [&](Program& program) {
        const std::string why = work(program);
        return why.empty() ? ExitStatus::Done : Refuse(console, why);
      },
      [&](Program& program) {
        if (console.options.json) {
          PrintRecords(console, program.settings.Store());
        }
      });
}

// Why the page's links could not be listed; "" where they could.
std::string Scan(Program& program, const std::string& page) {
  program.screens.ShowScreen(screen::kManageLinks);
  program.form.Text1[field::kLinkPath].SetText(page);
  const Label& import = program.form.Label2[action::kImport];
  import.MouseMove();
  if (import.BackColor() == kRed) {
    return "a page's address begins with http and has at least twelve characters";
  }
  import.Click();
  return program.requests.LastFailure();
}

void PrintFound(const Console& console, const CheckList& found) {
  if (!console.options.json) {
    for (const CheckList::Line& line : found.Lines()) {
      console.out << OneLine(line.text) << '\n';
    }
    return;
  }
  Json document = Json::array();
  for (const CheckList::Line& line : found.Lines()) {
    document.push_back(JsonText(line.text));
  }
  PrintDocument(console.out, document);
}

}  // namespace

ExitStatus LinksList(Console& console) {
  return RunOnStore(console, StoreAccess::ReadOnly, [&](SqliteStore& store) {
    PrintRecords(console, store);
    return ExitStatus::Done;
  });
}

ExitStatus LinksAdd(Console& console, const NewLink& link) {
  return RunAndList(console, [&](Program& program) { return SubmitNewLink(program, link); });
}

ExitStatus LinksRemove(Console& console, const std::string& name) {
  return RunAndList(console, [&](Program& program) { return SubmitRemoval(program, name); });
}

ExitStatus LinksScan(Console& console, const std::string& page) {
  return RunChanging(
      console,
      [&](Program& program) {
        const std::string why = Scan(program, page);
        return why.empty() ? ExitStatus::Done : Refuse(console, why);
      },
      [&](Program& program) { PrintFound(console, program.form.List1); });
}

}  // namespace tallyo
