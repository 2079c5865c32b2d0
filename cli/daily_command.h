#pragma once

#include <string>

#include "cli/console_options.h"

namespace tallyo {

struct DailyChoice {
  std::string name;   // of one link
  bool all = false;   // all links instead
  std::string month;  // "Jan" to "Dec"; empty: the current one
  bool csv = false;   // the hours that have an entry, as comma-separated values
};

ExitStatus Daily(Console& console, const DailyChoice& choice);

}  // namespace tallyo
