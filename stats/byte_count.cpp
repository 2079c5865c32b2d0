#include "stats/byte_count.h"

#include "text/decimal_text.h"

namespace tallyo {

std::string FormatByteCount(std::int32_t count) {
  if (count > 1000) {
    return DecimalText(count / 1000.0) + " KB";
  }
  return std::to_string(count) + " Bytes";
}

}  // namespace tallyo
