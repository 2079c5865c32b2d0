#include "text/integers.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "text/runtime_error.h"

namespace tallyo {
namespace {

constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

TEST(Integers, AreRoundedHalfToEvenBeforeTheRangeIsChecked) {
  const struct {
    double number;
    int rounded;
  } cases[] = {
      {2.5, 2},
      {3.5, 4},
      {-0.5, 0},
      {-1.5, -2},
      {-2.5, -2},
      {0.5, 0},
      {1.5, 2},
      {2.4999999999999996, 2},
      {0.49999999999999994, 0},
      {32767.49, 32767},
      {-32768.5, -32768},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(ToInt16(c.number), c.rounded) << c.number;
    EXPECT_EQ(ToInt32(c.number), c.rounded) << c.number;
  }
  EXPECT_EQ(ToInt32(2147483647.4), 2147483647);
  EXPECT_EQ(ToInt32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
}

TEST(Integers, FailWhereTheRoundedNumberDoesNotFit) {
  for (const double number : {32767.5, -32768.51, 1e300, kInfinity, -kInfinity, kNan}) {
    EXPECT_THROW(static_cast<void>(ToInt16(number)), RuntimeError) << number;
  }
  for (const double number : {2147483647.5, -2147483649.0, kLargest, -kInfinity, kNan}) {
    EXPECT_THROW(static_cast<void>(ToInt32(number)), RuntimeError) << number;
  }
}

TEST(Singles, AreRoundedAndFailWhereTheyDoNotFit) {
  EXPECT_EQ(ToSingle(36000.1), 36000.1F);
  EXPECT_EQ(ToSingle(-0.1), -0.1F);
  EXPECT_EQ(ToSingle(3.40282346638528859811704183484516925e38), std::numeric_limits<float>::max());
  // Rounds down to the largest single; half of its last place more does not.
  EXPECT_EQ(ToSingle(3.4028235e38), std::numeric_limits<float>::max());
  for (const double number : {3.4028236e38, -1e39, kInfinity, kNan}) {
    EXPECT_THROW(static_cast<void>(ToSingle(number)), RuntimeError) << number;
  }
}

}  // namespace
}  // namespace tallyo
