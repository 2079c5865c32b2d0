#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "tests/support/table.h"
#include "text/decimal_text.h"
#include "text/integers.h"
#include "text/leading_number.h"
#include "text/runtime_error.h"

namespace tallyo {
namespace {

using test::Table;

constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

TEST(LeadingNumber, IsTheNumberThatATextBeginsWith) {
  const std::string zeros(400, '0');
  const Table<std::string, double> cases = {{"-.5", -.5},
                                            {"5.", 5},
                                            {"+7", 7},
                                            {"  12", 12},
                                            {"1.8 KB", 1.8},
                                            {"1E3", 1},
                                            {"0x1", 0},
                                            {"1,2", 1},
                                            {"1.2.3", 1.2},
                                            {"", 0},
                                            {".", 0},
                                            {"- 5", 0},
                                            {"--5", 0},
                                            {"inf", 0},
                                            {"\t5", 0},
                                            {"9007199254740993", 9007199254740992},
                                            {"1" + zeros, kLargest},
                                            {"-1" + zeros + ".5", -kLargest},
                                            {zeros + "." + zeros + "1", 0},
                                            {"1." + zeros + "1", 1}};
  for (const auto& [text, number] : cases) {
    EXPECT_EQ(LeadingNumber(text), number) << text;
  }
  EXPECT_FALSE(std::signbit(LeadingNumber("-0." + zeros + "1")));
}

TEST(StrictNumber, TakesANumberBetweenBlanksAndNothingElse) {
  EXPECT_EQ(StrictNumber(" -.5 "), -.5);
  for (const char* text : {"", "15abc", "1,234", "1 2", "15\t", "."}) {
    EXPECT_THROW(static_cast<void>(StrictNumber(text)), RuntimeError) << text;
  }
}

TEST(DecimalText, IsPositionalWithFifteenDigitsOrSevenForASingle) {
  const Table<double, std::string> doubles = {
      {-0.0, "0"},
      {0.1 + 0.2, "0.3"},
      {-1.5, "-1.5"},
      {1e-7, "0.0000001"},
      {1e15, "1000000000000000"},
      {123456789012345678., "123456789012346000"},
      {0.9999999999999999, "1"},
      {2.0 / 3, "0.666666666666667"},
      {kLargest, "179769313486232" + std::string(294, '0')}};
  for (const auto& [number, text] : doubles) {
    EXPECT_EQ(DecimalText(number), text);
  }
  EXPECT_EQ(SingleDecimalText(36000.125F), "36000.12");
  EXPECT_EQ(SingleDecimalText(12345678.F), "12345680");
  EXPECT_EQ(SingleDecimalText(0.1F), "0.1");
  EXPECT_EQ(SignPlaceText(.25) + SignPlaceText(-.25) + SignPlaceText(10.5), " .25-.25 10.5");
  EXPECT_THROW(static_cast<void>(DecimalText(kInfinity)), RuntimeError);
}

TEST(Integers, AreRoundedHalfToEvenBeforeTheRangeIsChecked) {
  const Table<double, int> cases = {
      {2.5, 2},    {3.5, 4},          {-0.5, 0},         {-1.5, -2}, {2.4999999999999996, 2},
      {-2.51, -3}, {32767.49, 32767}, {-32768.5, -32768}};
  for (const auto& [number, rounded] : cases) {
    EXPECT_EQ(ToInt16(number), rounded) << number;
  }
  EXPECT_EQ(ToInt32(2147483647.4), 2147483647);
  for (const double number : {32767.5, -32768.51, kNan}) {
    EXPECT_THROW(static_cast<void>(ToInt16(number)), RuntimeError) << number;
  }
  for (const double number : {2147483647.5, -2147483649.0, kNan}) {
    EXPECT_THROW(static_cast<void>(ToInt32(number)), RuntimeError) << number;
  }
}

TEST(Singles, AreRoundedAndFailWhereTheyDoNotFit) {
  EXPECT_EQ(ToSingle(36000.1), 36000.1F);
  // Rounds down to the largest single; half of its last place more does not.
  EXPECT_EQ(ToSingle(3.4028235e38), std::numeric_limits<float>::max());
  for (const double number : {3.4028236e38, -1e39, kNan}) {
    EXPECT_THROW(static_cast<void>(ToSingle(number)), RuntimeError) << number;
  }
}

}  // namespace
}  // namespace tallyo
