#pragma once

#include "app/program.h"
#include "cli/console_options.h"

namespace tallyo {

enum class StatusFormat { AsOptions, Csv };

ExitStatus Status(Console& console, StatusFormat format);
ExitStatus Refresh(Console& console);
ExitStatus Info(Console& console);

// The rows of the current status, as the program's window holds them.
void PrintStatus(const Console& console, const Program& program);

}  // namespace tallyo
