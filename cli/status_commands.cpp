#include "cli/status_commands.h"

#include <ostream>

#include "cli/json_output.h"
#include "cli/refusal_text.h"
#include "cli/sessions.h"
#include "cli/table.h"

namespace tallyo {
namespace {

Table StatusTable(const Program& program) {
  Table table({{"Name", "name"},
               {"Counter", "counter", Align::Right},
               {"Change", "change", Align::Right},
               {"Path", "path"}});
  const ReportList& list = program.form.ListView1;
  for (int row = 1; row <= list.RowCount(); ++row) {
    table.AddRow({list.RowText(row), list.Value(row, 1), list.Value(row, 2), list.Value(row, 3)});
  }
  return table;
}

// The row numbers of the details are numbers, all else is text.
void PrintDetails(const Console& console, const Program& program) {
  const ReportList& list = program.form.ListView3;
  if (!console.options.json) {
    Table table({{"", "row", Align::Right}, {"Service Details", "item"}, {"", "value"}});
    for (int row = 1; row <= list.RowCount(); ++row) {
      table.AddRow({std::to_string(row), list.RowText(row), list.Value(row, 1)});
    }
    table.Print(console, "");
    return;
  }
  Json document = Json::array();
  for (int row = 1; row <= list.RowCount(); ++row) {
    document.push_back({{"row", row},
                        {"item", JsonText(list.RowText(row))},
                        {"value", JsonText(list.Value(row, 1))}});
  }
  PrintDocument(console.out, document);
}

}  // namespace

void PrintStatus(const Console& console, const Program& program) {
  StatusTable(program).Print(console, "No links are monitored.");
}

ExitStatus Status(Console& console, StatusFormat format) {
  return RunReading(console, [&](Program& program) {
    if (format == StatusFormat::Csv) {
      StatusTable(program).PrintCsv(console.out);
    } else {
      PrintStatus(console, program);
    }
    return ExitStatus::Done;
  });
}

ExitStatus Refresh(Console& console) {
  return RunChanging(
      console,
      [&](Program& program) {
        const RefreshOutcome outcome = program.refresh.RefreshStatistics();
        return outcome == RefreshOutcome::Completed
                   ? ExitStatus::Done
                   : Refuse(console, WhyNotRefreshed(program, outcome));
      },
      [&](Program& program) { PrintStatus(console, program); });
}

ExitStatus Info(Console& console) {
  return RunChanging(
      console,
      [&](Program& program) {
        program.serviceInfo.ShowServiceInfo();
        const std::string why = WhyAccountRefused(program);
        return why.empty() ? ExitStatus::Done : Refuse(console, why);
      },
      [&](Program& program) { PrintDetails(console, program); });
}

}  // namespace tallyo
