#pragma once

#include <string>

namespace tallyo {

[[nodiscard]] std::string Version();       // "1.1.0"
[[nodiscard]] std::string ShortVersion();  // "1.1": major and minor version
[[nodiscard]] std::string UserAgent();     // "Tallyo/1.1": how the programs name themselves

}  // namespace tallyo
