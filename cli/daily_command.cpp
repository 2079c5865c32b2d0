#include "cli/daily_command.h"

#include <ostream>
#include <vector>

#include "cli/csv.h"
#include "cli/month_grid.h"
#include "cli/sessions.h"
#include "text/dates.h"
#include "text/decimal_text.h"
#include "text/two_digits.h"

namespace tallyo {
namespace {

// Fills the window's grid with a link's month.
const ReportList& ShowMonth(Program& program, const std::string& month, const std::string& name) {
  program.form.Combo3.SetText(month);
  program.dailyStatus.ShowMonth();
  program.dailyFiles.LoadDailyFile(month, name);
  return program.form.ListView2;
}

void PrintCsv(Console& console, const Program& program, const std::string& month,
              const std::vector<std::string>& names) {
  const Date today = console.clock.Now().date;
  int number = 1;
  while (MonthName(Date{today.year(), std::chrono::month{static_cast<unsigned>(number)},
                        std::chrono::day{1}}) != month) {
    ++number;
  }
  const std::string prefix = YearText(today) + "-" + TwoDigits(number) + "-";
  PrintCsvRow(console.out, {"name", "date", "hour", "hits"});
  for (const std::string& name : names) {
    for (const HourHits& entry : program.dailyFiles.ReadMonth(month, name)) {
      PrintCsvRow(console.out, {name, prefix + TwoDigits(entry.day), std::to_string(entry.hour),
                                DecimalText(entry.hits)});
    }
  }
}

void PrintAll(const Console& console, Program& program, const std::string& month) {
  Json document = Json::array();
  bool first = true;
  for (const std::string& name : program.form.Combo1.Items()) {
    const ReportList& grid = ShowMonth(program, month, name);
    if (console.options.json) {
      Json object = {{"name", JsonText(name)}};
      object.update(MonthGridJson(grid));
      document.push_back(std::move(object));
    } else {
      console.out << (first ? "" : "\n");
      PrintMonthGrid(console.out, grid, name);
    }
    first = false;
  }
  if (console.options.json) {
    PrintDocument(console.out, document);
  } else if (first) {
    console.out << "No links are monitored.\n";
  }
}

void PrintOne(const Console& console, Program& program, const std::string& month,
              const std::string& name) {
  const ReportList& grid = ShowMonth(program, month, name);
  if (console.options.json) {
    PrintDocument(console.out, MonthGridJson(grid));
  } else {
    PrintMonthGrid(console.out, grid, name);
  }
}

// A link that is no longer monitored keeps its history.
bool IsKnown(const Program& program, const std::string& month, const std::string& name) {
  const ComboBox& listed = program.form.Combo1;
  return listed.Find(name) < listed.Count() || program.dailyFiles.HasFile(month, name);
}

}  // namespace

ExitStatus Daily(Console& console, const DailyChoice& choice) {
  return RunReading(console, [&](Program& program) {
    const std::string month =
        choice.month.empty() ? MonthName(console.clock.Now().date) : choice.month;
    if (!choice.all && !IsKnown(program, month, choice.name)) {
      return Refuse(console, "no link is named " + choice.name);
    }
    if (choice.csv) {
      PrintCsv(console, program, month,
               choice.all ? program.form.Combo1.Items() : std::vector{choice.name});
    } else if (choice.all) {
      PrintAll(console, program, month);
    } else {
      PrintOne(console, program, month, choice.name);
    }
    return ExitStatus::Done;
  });
}

}  // namespace tallyo
