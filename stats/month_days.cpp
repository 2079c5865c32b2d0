#include "stats/month_days.h"

#include <algorithm>
#include <array>

#include "text/dates.h"

namespace tallyo {

void DaysInMonth(std::string_view month, std::int16_t& days) {
  constexpr std::array<std::string_view, 5> kShort = {"Feb", "Apr", "Jun", "Sep", "Nov"};
  if (std::ranges::find(kShort, month) != kShort.end()) {
    days = 30;
  } else if (std::ranges::find(kMonthNames, month) != kMonthNames.end()) {
    days = 31;
  }
}

}  // namespace tallyo
