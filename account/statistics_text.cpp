#include "account/statistics_text.h"

#include "settings/names.h"
#include "settings/version.h"

namespace tallyo {

std::string StatisticsText(const ReportList& currentStatus, const LocalTime& now) {
  std::string text = " -- " + std::string(names::AppTitle) + " v." + ShortVersion() + "    " +
                     MonthDayYear(now.date) + "  " + ClockText(now) + " -- \r\n\r\n";
  for (int row = 1; row <= currentStatus.RowCount(); ++row) {
    text += "  " + currentStatus.RowText(row) + ":  " + currentStatus.Value(row, 1) + "\r\n";
  }
  return text;
}

}  // namespace tallyo
