#include "settings/version.h"

namespace tallyo {

std::string Version() { return TALLYO_VERSION; }

std::string ShortVersion() { return TALLYO_SHORT_VERSION; }

std::string UserAgent() { return "Tallyo/" + ShortVersion(); }

}  // namespace tallyo
