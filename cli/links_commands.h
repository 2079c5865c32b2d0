#pragma once

#include <optional>
#include <string>

#include "cli/console_options.h"

namespace tallyo {

struct NewLink {
  std::string path;
  std::string name;
  std::optional<std::string> reference;  // none: the last part of the path, as the screen proposes
  std::string sizeKb;
};

ExitStatus LinksList(Console& console);
ExitStatus LinksAdd(Console& console, const NewLink& link);
ExitStatus LinksRemove(Console& console, const std::string& name);

}  // namespace tallyo
