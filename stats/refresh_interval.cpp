#include "stats/refresh_interval.h"

#include "text/integers.h"
#include "text/leading_number.h"

namespace tallyo {

double ComparableNow(const LocalTime& now) {
  return static_cast<double>(static_cast<float>(now.secondsSinceMidnight));
}

double RefreshIntervalSeconds(std::string_view hours) {
  const float single = ToSingle(LeadingNumber(hours));
  return ToSingle(static_cast<double>(single * 3600.0F));
}

}  // namespace tallyo
