#pragma once

#include <string>

#include "form/report_list.h"
#include "text/dates.h"

namespace tallyo {

// The current status as text to copy: a heading with version, date and time, an empty line, and a
// line "  name:  counter" for each row. Lines end with CR LF.
[[nodiscard]] std::string StatisticsText(const ReportList& currentStatus, const LocalTime& now);

}  // namespace tallyo
