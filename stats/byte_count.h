#pragma once

#include <cstdint>
#include <string>

namespace tallyo {

// A number of bytes as a size: "5 Bytes" up to 1000, beyond that thousands as "1.5 KB". Sizes of
// millions stay in KB.
[[nodiscard]] std::string FormatByteCount(std::int32_t count);

}  // namespace tallyo
