#pragma once

#include <string>

#include "cli/console_options.h"

namespace tallyo {

ExitStatus ConfigExport(Console& console);
ExitStatus ConfigImport(Console& console, const std::string& company, const std::string& account);
ExitStatus StatsExport(Console& console);
ExitStatus CountingLinkOf(Console& console, const std::string& name);

}  // namespace tallyo
