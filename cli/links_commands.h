#pragma once

#include <string>

#include "cli/console_options.h"
#include "cli/link_submission.h"

namespace tallyo {

ExitStatus LinksList(Console& console);
ExitStatus LinksAdd(Console& console, const NewLink& link);
ExitStatus LinksRemove(Console& console, const std::string& name);

// Lists the links found on a web page.
ExitStatus LinksScan(Console& console, const std::string& page);

}  // namespace tallyo
