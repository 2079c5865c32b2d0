#pragma once

#include <iosfwd>
#include <string>

#include "cli/json_output.h"
#include "form/report_list.h"

namespace tallyo {

// The grid of the daily status as it stands in the window: hours by days.

// For a person: a line for each hour, the sums of days and month below.
void PrintMonthGrid(std::ostream& out, const ReportList& grid, const std::string& name);

// heading, days, and cells[24][days], each a text, empty where nothing was counted.
[[nodiscard]] Json MonthGridJson(const ReportList& grid);

}  // namespace tallyo
