#pragma once

#include <string>
#include <string_view>

namespace tallyo::fuzz {

// The content of a daily file with more hits in the hour of the key, line by line.
[[nodiscard]] std::string PlainDailyFile(std::string_view content, const std::string& key,
                                         long increment);

}  // namespace tallyo::fuzz
