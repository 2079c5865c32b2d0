#pragma once

#include "service/commands.h"

namespace tallyo::service {

[[nodiscard]] CommandLine ParseArguments(int count, const char* const* arguments);

}  // namespace tallyo::service
