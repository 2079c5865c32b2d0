#include "text/leading_number.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <limits>
#include <string>

#include "text/runtime_error.h"

namespace tallyo {
namespace {

constexpr double kLargest = std::numeric_limits<double>::max();

TEST(LeadingNumber, IsTheNumberThatATextBeginsWith) {
  const struct {
    std::string text;
    double number;
  } cases[] = {
      {"-2", -2},
      {".5", .5},
      {"-.5", -.5},
      {"5.", 5},
      {"+7", 7},
      {"  12", 12},
      {"1.8 KB", 1.8},
      {"15abc", 15},
      {"1E3", 1},
      {"0x10", 0},
      {"1,234", 1},
      {"1.2.3", 1.2},
      {"1 2", 1},
      {"007", 7},
      {"1-2", 1},
      {"", 0},
      {"   ", 0},
      {".", 0},
      {"-", 0},
      {"+.", 0},
      {"- 5", 0},
      {"--5", 0},
      {"+-5", 0},
      {"inf", 0},
      {"nan", 0},
      {"\t5", 0},
      {"\n5", 0},
      {"$5", 0},
      {"0.1", 0.1},
      {"9007199254740993", 9007199254740992},
      {"0.30000000000000004", 0.1 + 0.2},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(LeadingNumber(c.text), c.number) << c.text;
  }
}

TEST(LeadingNumber, IsNeverMinusZero) {
  for (const std::string& text : std::initializer_list<std::string>{
           "-0", "-0.0", "-", "-.", "-0." + std::string(400, '0') + "1"}) {
    EXPECT_FALSE(std::signbit(LeadingNumber(text))) << text;
  }
}

TEST(LeadingNumber, StaysInTheRangeOfADouble) {
  const std::string zeros(400, '0');
  EXPECT_EQ(LeadingNumber("1" + zeros), kLargest);
  EXPECT_EQ(LeadingNumber("-1" + zeros + ".5"), -kLargest);
  EXPECT_EQ(LeadingNumber("0." + zeros + "1"), 0);
  EXPECT_EQ(LeadingNumber(zeros + "12"), 12);
  EXPECT_EQ(LeadingNumber(zeros + "." + zeros + "1"), 0);
  EXPECT_EQ(LeadingNumber("1." + zeros + "1"), 1);
}

TEST(LeadingNumber, ReadsHundredThousandDigits) {
  EXPECT_EQ(LeadingNumber(std::string(100'000, '9')), kLargest);
  EXPECT_EQ(LeadingNumber("0." + std::string(100'000, '3')), 1.0 / 3);
}

TEST(StrictNumber, TakesANumberBetweenBlanksAndNothingElse) {
  EXPECT_EQ(StrictNumber(" 15 "), 15);
  EXPECT_EQ(StrictNumber("-.5"), -.5);
  for (const std::string text :
       {"", " ", "15abc", "1,234", "1E3", "1 2", "- 5", "15\t", ".", "0x1"}) {
    EXPECT_THROW(static_cast<void>(StrictNumber(text)), RuntimeError) << text;
  }
}

}  // namespace
}  // namespace tallyo
