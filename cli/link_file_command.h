#pragma once

#include <string>

#include "cli/console_options.h"

namespace tallyo {

enum class DryRun { No, Yes };

// Adds the link of each line of a file ("-": standard input), path,name[,reference[,size_kb]], and
// says of each line what came of it. A dry run asks no service and changes nothing.
ExitStatus LinksAddFrom(Console& console, const std::string& file, DryRun dryRun);

}  // namespace tallyo
