#include "stats/byte_count.h"

#include <gtest/gtest.h>

#include <limits>

namespace tallyo {
namespace {

TEST(ByteCount, IsShownInBytesUpToAThousandAndInThousandsBeyond) {
  const struct {
    std::int32_t count;
    const char* text;
  } rows[] = {{0, "0 Bytes"},
              {-5, "-5 Bytes"},
              {1000, "1000 Bytes"},
              {1001, "1.001 KB"},
              {1500, "1.5 KB"},
              {2000, "2 KB"},
              {1'234'567, "1234.567 KB"},
              {1'500'000'000, "1500000 KB"},
              {std::numeric_limits<std::int32_t>::max(), "2147483.647 KB"},
              {std::numeric_limits<std::int32_t>::min(), "-2147483648 Bytes"}};
  for (const auto& row : rows) {
    EXPECT_EQ(FormatByteCount(row.count), row.text);
  }
}

}  // namespace
}  // namespace tallyo
