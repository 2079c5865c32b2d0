#pragma once

#include <CLI/CLI.hpp>
#include <functional>

#include "cli/console_options.h"

namespace tallyo {

// What the person chose: set by the command that stands on the command line, run after all of it
// has been read.
using ChosenCommand = std::function<ExitStatus(Console&)>;

// Puts every command of the console into the parser. `chosen` must outlive the parsing.
void AddCommands(CLI::App& app, ChosenCommand& chosen);

}  // namespace tallyo
