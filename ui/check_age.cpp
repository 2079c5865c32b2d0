#include "ui/check_age.h"

#include <cmath>

#include "text/decimal_text.h"

namespace tallyo {

std::string CheckAge(double seconds) {
  const double whole = std::floor(seconds);
  if (whole <= 60) {
    return DecimalText(whole) + " seconds ago";
  }
  const double minutes = std::floor(whole / 60);
  if (minutes <= 60) {
    return DecimalText(minutes) + " minutes ago";
  }
  const double hours = std::floor(minutes / 60);
  // " .25" for a quarter; " 0" has nothing at these places.
  const std::string fraction = SignPlaceText(minutes / 60.0 - hours);
  const std::string decimals = fraction.size() > 2 ? fraction.substr(2, 2) : "";
  return DecimalText(hours) + "Hr. " + decimals + " minutes ago";
}

}  // namespace tallyo
