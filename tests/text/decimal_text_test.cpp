#include "text/decimal_text.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "text/runtime_error.h"

namespace tallyo {
namespace {

constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

TEST(DecimalText, IsPositionalWithFifteenDigits) {
  const struct {
    double number;
    std::string text;
  } cases[] = {
      {0, "0"},
      {-0.0, "0"},
      {0.1 + 0.2, "0.3"},
      {-1.5, "-1.5"},
      {1e-7, "0.0000001"},
      {1e15, "1000000000000000"},
      {123456789012345678., "123456789012346000"},
      {999999999999999.9, "1000000000000000"},
      {0.9999999999999999, "1"},
      {100, "100"},
      {1.0 / 3, "0.333333333333333"},
      {2.0 / 3, "0.666666666666667"},
      {1e300, "1" + std::string(300, '0')},
      {5e-324, "0." + std::string(323, '0') + "494065645841247"},
      {kLargest, "179769313486232" + std::string(294, '0')},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(DecimalText(c.number), c.text);
  }
}

TEST(DecimalText, HasSevenDigitsForASingle) {
  const struct {
    float number;
    std::string text;
  } cases[] = {
      {36000.125F, "36000.12"},
      {12345678.F, "12345680"},
      {0.1F, "0.1"},
      {-0.F, "0"},
      {86399.99F, "86399.99"},
      {16777216.F, "16777220"},
      {9999999.5F, "10000000"},
      {-2.5F, "-2.5"},
      {1e-45F, "0." + std::string(44, '0') + "1401298"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(SingleDecimalText(c.number), c.text);
  }
}

TEST(DecimalText, HasASignPlaceInFrontWhereAsked) {
  const struct {
    double number;
    std::string text;
  } cases[] = {{1, " 1"},    {.25, " .25"}, {-.25, "-.25"}, {0, " 0"},
               {-0.0, " 0"}, {-10, "-10"},  {10.5, " 10.5"}};
  for (const auto& c : cases) {
    EXPECT_EQ(SignPlaceText(c.number), c.text);
  }
}

TEST(DecimalText, DoesNotExistForWhatIsNotFinite) {
  EXPECT_THROW(static_cast<void>(DecimalText(kInfinity)), RuntimeError);
  EXPECT_THROW(static_cast<void>(DecimalText(kNan)), RuntimeError);
  EXPECT_THROW(static_cast<void>(SignPlaceText(-kInfinity)), RuntimeError);
  EXPECT_THROW(static_cast<void>(SingleDecimalText(-std::numeric_limits<float>::infinity())),
               RuntimeError);
}

}  // namespace
}  // namespace tallyo
