#pragma once

#include <string>

#include "cli/console_options.h"

namespace tallyo {

struct DailyChoice {
  std::string name;
  std::string month;  // "Jan" to "Dec"; empty: the current one
};

ExitStatus Daily(Console& console, const DailyChoice& choice);

}  // namespace tallyo
