#include "cli/console_options.h"

#include <ostream>

#include "cli/safe_text.h"

namespace tallyo {

ExitStatus Refuse(Console& console, const std::string& why) {
  console.err << "tallyo-cli: " << OneLine(why) << '\n';
  return ExitStatus::Refused;
}

}  // namespace tallyo
