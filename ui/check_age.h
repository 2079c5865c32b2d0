#pragma once

#include <string>

namespace tallyo {

// How long ago something was, from its age in seconds: "45 seconds ago", "12 minutes ago",
// "1Hr. 25 minutes ago". Beyond an hour the two characters before "minutes" are the first decimals
// of the fraction of an hour, and blank where there are none; a negative age is so many seconds.
[[nodiscard]] std::string CheckAge(double seconds);

}  // namespace tallyo
