#include "text/shown_text.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/table.h"

namespace tallyo {
namespace {

TEST(ShownText, KeepsUtf8) {
  // The ends of each length of sequence, and of the gap that surrogates leave.
  for (const std::string& text :
       {std::string("a\0b", 3), std::string("\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF"),
        std::string("\xEE\x80\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF")}) {
    EXPECT_EQ(ShownText(text), text);
  }
}

TEST(ShownText, TakesOtherBytesAsWindows1252) {
  const test::Table<std::string, std::string> cases = {
      {"\x80", "\xE2\x82\xAC"},
      {"\x93q\x94", "\xE2\x80\x9Cq\xE2\x80\x9D"},
      {"\x81\x8D\x8F\x90\x9D", "\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D"},  // left open
      {"\x9F\xA0\xFF", "\xC5\xB8\xC2\xA0\xC3\xBF"},
      {"\xC3\xA9\xE9", "\xC3\x83\xC2\xA9\xC3\xA9"}};  // one bad byte decides for the whole text
  for (const auto& [bytes, shown] : cases) {
    EXPECT_EQ(ShownText(bytes), shown);
  }
}

TEST(ShownText, TakesNoFaultySequenceForUtf8) {
  // Overlong forms, surrogates, codes past the last one, cut and broken sequences.
  for (const char* bytes :
       {"\xC1\xBF", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", "\xED\xA0\x80", "\xF4\x90\x80\x80",
        "\xF5\x80\x80\x80", "\xC3", "\xE2\x82", "\xE2\x82z", "\xF0\x90z\x80", "a\x80"}) {
    EXPECT_FALSE(IsUtf8(bytes)) << testing::PrintToString(bytes);
  }
}

}  // namespace
}  // namespace tallyo
