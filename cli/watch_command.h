#pragma once

#include <optional>

#include "cli/console_options.h"

namespace tallyo {

// Runs the refresh scheduler until a signal comes, or for so many seconds.
ExitStatus Watch(Console& console, std::optional<double> seconds);

}  // namespace tallyo
