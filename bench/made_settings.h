#pragma once

#include <array>
#include <string_view>

namespace tallyo::bench {

// The settings that are written one after the other, over and over.
inline constexpr std::array<std::string_view, 4> kWrittenSettings = {"BytesTransTotal", "PrevCheck",
                                                                     "AccOpen", "DefURL"};

}  // namespace tallyo::bench
