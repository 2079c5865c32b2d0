#include "cli/month_grid.h"

#include <algorithm>
#include <iomanip>
#include <ostream>
#include <vector>

#include "cli/safe_text.h"
#include "text/leading_number.h"
#include "text/two_digits.h"

namespace tallyo {
namespace {

constexpr int kHours = 24;

int DayCount(const ReportList& grid) { return static_cast<int>(grid.Headings().size()) - 1; }

// The hits of each day.
std::vector<long> DaySums(const ReportList& grid) {
  std::vector<long> sums;
  for (int day = 1; day <= DayCount(grid); ++day) {
    double sum = 0;
    for (int row = 1; row <= kHours; ++row) {
      sum += LeadingNumber(grid.Value(row, day));
    }
    sums.push_back(static_cast<long>(sum));
  }
  return sums;
}

}  // namespace

void PrintMonthGrid(std::ostream& out, const ReportList& grid, const std::string& name) {
  const std::vector<long> sums = DaySums(grid);
  std::size_t widest = 2;
  long month = 0;
  for (const long sum : sums) {
    widest = std::max(widest, std::to_string(sum).size());
    month += sum;
  }
  const int width = static_cast<int>(widest) + 1;  // no cell is wider than its day's sum
  out << OneLine(name) << ", " << OneLine(grid.Headings().front().text) << "\n\nHour ";
  for (int day = 1; day <= DayCount(grid); ++day) {
    out << std::setw(width) << day;
  }
  for (int row = 1; row <= kHours; ++row) {
    out << "\n  " << TwoDigits(row - 1) << ' ';
    for (int day = 1; day <= DayCount(grid); ++day) {
      const std::string& cell = grid.Value(row, day);
      out << std::setw(width) << (cell.empty() ? "." : cell);
    }
  }
  out << "\nSum  ";
  for (const long sum : sums) {
    out << std::setw(width) << sum;
  }
  out << "\n\nMonth: " << month << '\n';
}

Json MonthGridJson(const ReportList& grid) {
  Json cells = Json::array();
  for (int row = 1; row <= kHours; ++row) {
    Json hour = Json::array();
    for (int day = 1; day <= DayCount(grid); ++day) {
      hour.push_back(grid.Value(row, day));
    }
    cells.push_back(std::move(hour));
  }
  return {{"heading", JsonText(grid.Headings().front().text)},
          {"days", DayCount(grid)},
          {"cells", std::move(cells)}};
}

}  // namespace tallyo
