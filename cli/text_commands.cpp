#include "cli/text_commands.h"

#include <algorithm>
#include <ostream>

#include "cli/json_output.h"
#include "cli/safe_text.h"
#include "cli/sessions.h"
#include "links/link_record.h"

namespace tallyo {
namespace {

// What the text screen shows: in JSON to the byte, for a person with the terminal's line ends.
void PrintText(const Console& console, const Program& program) {
  std::string text = program.form.Text4.Text();
  if (console.options.json) {
    PrintDocument(console.out, JsonText(text));
    return;
  }
  if (text.empty()) {
    return;
  }
  std::erase(text, '\r');
  console.out << SeveralLines(text) << (text.ends_with('\n') ? "" : "\n");
}

ExitStatus Import(Console& console, Program& program, const std::string& company,
                  const std::string& account) {
  program.form.mnuFile.Click();  // offers the import where no link is monitored
  if (!program.form.mnuImportAll.Enabled()) {
    return Refuse(console, "a configuration can only be imported where no link is monitored");
  }
  program.form.Text1[field::kCompany].SetText(company);
  program.form.Text1[field::kAccount].SetText(account);
  if (!program.configurationImport.ImportConfiguration()) {
    return Refuse(console, "nothing was imported");
  }
  return ExitStatus::Done;
}

}  // namespace

ExitStatus ConfigExport(Console& console) {
  return RunChanging(
      console,
      [&](Program& program) {
        if (program.form.Combo1.Count() == 0) {
          return Refuse(console, "no links are monitored; there is nothing to export");
        }
        return program.textScreen.ExportConfiguration()
                   ? ExitStatus::Done
                   : Refuse(console, "the configuration could not be written");
      },
      [&](Program& program) { PrintText(console, program); });
}

ExitStatus ConfigImport(Console& console, const std::string& company, const std::string& account) {
  int links = 0;
  return RunChanging(
      console,
      [&](Program& program) {
        const ExitStatus status = Import(console, program, company, account);
        links = status == ExitStatus::Done ? program.form.Combo1.Count() : 0;
        return status;
      },
      [&](Program& /*program*/) {
        if (console.options.json) {
          PrintDocument(console.out, {{"imported", links}});
        } else if (links > 0) {
          console.out << links << (links == 1 ? " link" : " links") << " imported\n";
        }
      });
}

ExitStatus StatsExport(Console& console) {
  return RunReading(console, [&](Program& program) {
    program.textScreen.ExportStatsText();
    PrintText(console, program);
    return ExitStatus::Done;
  });
}

ExitStatus CountingLinkOf(Console& console, const std::string& name) {
  return RunReading(console, [&](Program& program) {
    ComboBox& listed = program.form.Combo1;
    const int item = listed.Find(name);
    if (item == listed.Count()) {
      return Refuse(console, "no link is named " + name);
    }
    LinkLookup found;
    program.Dispatch([&] {
      LinkFields walked;
      found = program.links.FindMonitoredLink(walked, name, FindBy::FriendlyName);
    });
    if (!found.found) {
      return Refuse(console, "the record of the link " + name + " cannot be read");
    }
    listed.Choose(item);
    // Choosing a link without a reference of its own fills that of a link before it.
    const std::string record = program.links.RecordOf(found);
    program.form.Text1[field::kReference].SetText(
        std::string(SplitRecord(record).fields[linkfield::kReference].value_or("")));
    program.textScreen.MakeCountingLink();
    PrintText(console, program);
    return ExitStatus::Done;
  });
}

}  // namespace tallyo
