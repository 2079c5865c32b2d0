#include "settings/version.h"

namespace tallyo {

std::string Version() { return TALLYO_VERSION; }

std::string ShortVersion() { return TALLYO_SHORT_VERSION; }

}  // namespace tallyo
