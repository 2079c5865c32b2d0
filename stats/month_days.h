#pragma once

#include <cstdint>
#include <string_view>

namespace tallyo {

// The days that a month ("Jan" to "Dec", exactly so) has room for in the daily files: 31 or 30.
// February has 30. Any other text leaves `days` as it is.
void DaysInMonth(std::string_view month, std::int16_t& days);

}  // namespace tallyo
