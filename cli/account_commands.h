#pragma once

#include <string>

#include "cli/console_options.h"

namespace tallyo {

ExitStatus AccountSave(Console& console, const std::string& company, const std::string& account);
ExitStatus AccountShow(Console& console);

}  // namespace tallyo
