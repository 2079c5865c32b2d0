#include "text/two_digits.h"

#include <gtest/gtest.h>

#include <string>

namespace tallyo {
namespace {

TEST(TwoDigits, AreTheLeast) {
  const struct {
    int number;
    std::string text;
  } cases[] = {{0, "00"}, {7, "07"}, {12, "12"}, {100, "100"}, {-5, "-05"}, {-12, "-12"}};
  for (const auto& c : cases) {
    EXPECT_EQ(TwoDigits(c.number), c.text);
  }
}

}  // namespace
}  // namespace tallyo
