#include "cli/daily_command.h"

#include <iomanip>
#include <ostream>

#include "cli/json_output.h"
#include "cli/safe_text.h"
#include "cli/sessions.h"
#include "text/leading_number.h"
#include "text/two_digits.h"

namespace tallyo {
namespace {

constexpr int kHours = 24;

int DayCount(const ReportList& grid) { return static_cast<int>(grid.Headings().size()) - 1; }

void PrintJson(std::ostream& out, const ReportList& grid) {
  Json cells = Json::array();
  for (int row = 1; row <= kHours; ++row) {
    Json hour = Json::array();
    for (int day = 1; day <= DayCount(grid); ++day) {
      hour.push_back(grid.Value(row, day));
    }
    cells.push_back(std::move(hour));
  }
  PrintDocument(out, {{"heading", JsonText(grid.Headings().front().text)},
                      {"days", DayCount(grid)},
                      {"cells", std::move(cells)}});
}

// The widest text that a column of the printed grid must hold, its sum included.
std::size_t CellWidth(const ReportList& grid) {
  std::size_t width = 2;
  for (int day = 1; day <= DayCount(grid); ++day) {
    double sum = 0;
    for (int row = 1; row <= kHours; ++row) {
      width = std::max(width, grid.Value(row, day).size());
      sum += LeadingNumber(grid.Value(row, day));
    }
    width = std::max(width, std::to_string(static_cast<long>(sum)).size());
  }
  return width;
}

void PrintGrid(std::ostream& out, const ReportList& grid, const std::string& name) {
  const int width = static_cast<int>(CellWidth(grid)) + 1;
  const int days = DayCount(grid);
  out << OneLine(name) << ", " << OneLine(grid.Headings().front().text) << "\n\nHour ";
  for (int day = 1; day <= days; ++day) {
    out << std::setw(width) << day;
  }
  out << '\n';
  for (int row = 1; row <= kHours; ++row) {
    out << "  " << TwoDigits(row - 1) << ' ';
    for (int day = 1; day <= days; ++day) {
      const std::string& cell = grid.Value(row, day);
      out << std::setw(width) << (cell.empty() ? "." : cell);
    }
    out << '\n';
  }
  out << "Sum  ";
  double total = 0;
  for (int day = 1; day <= days; ++day) {
    double sum = 0;
    for (int row = 1; row <= kHours; ++row) {
      sum += LeadingNumber(grid.Value(row, day));
    }
    total += sum;
    out << std::setw(width) << static_cast<long>(sum);
  }
  out << "\n\nMonth: " << static_cast<long>(total) << '\n';
}

}  // namespace

ExitStatus Daily(Console& console, const DailyChoice& choice) {
  return RunReading(console, [&](Program& program) {
    MainForm& form = program.form;
    const std::string month =
        choice.month.empty() ? MonthName(console.clock.Now().date) : choice.month;
    if (form.Combo1.Find(choice.name) == form.Combo1.Count() &&
        !program.dailyFiles.HasFile(month, choice.name)) {
      return Refuse(console, "no link is named " + choice.name);
    }
    form.Combo3.SetText(month);
    program.dailyStatus.ShowMonth();
    program.dailyFiles.LoadDailyFile(month, choice.name);
    if (console.options.json) {
      PrintJson(console.out, form.ListView2);
    } else {
      PrintGrid(console.out, form.ListView2, choice.name);
    }
    return ExitStatus::Done;
  });
}

}  // namespace tallyo
