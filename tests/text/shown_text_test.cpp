#include "text/shown_text.h"

#include <gtest/gtest.h>

#include <string>

namespace tallyo {
namespace {

TEST(ShownText, KeepsUtf8) {
  // The ends of each length of sequence, and of the gap that surrogates leave.
  const std::string cases[] = {"",
                               "plain",
                               std::string("a\0b", 3),
                               "\xC2\x80",
                               "\xDF\xBF",
                               "\xE0\xA0\x80",
                               "\xED\x9F\xBF",
                               "\xEE\x80\x80",
                               "\xEF\xBF\xBF",
                               "\xF0\x90\x80\x80",
                               "\xF4\x8F\xBF\xBF",
                               "caf\xC3\xA9 \xE2\x82\xAC"};
  for (const std::string& text : cases) {
    EXPECT_TRUE(IsUtf8(text)) << text;
    EXPECT_EQ(ShownText(text), text);
  }
}

TEST(ShownText, TakesOtherBytesAsWindows1252) {
  const struct {
    std::string bytes;
    std::string shown;
  } cases[] = {
      {"\x80", "\xE2\x82\xAC"},                    // the euro sign
      {"caf\xE9", "caf\xC3\xA9"},                  // cut before its second byte
      {"\x93q\x94", "\xE2\x80\x9Cq\xE2\x80\x9D"},  // quotation marks
      {"\x81\x8D\x8F\x90\x9D", "\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D"},  // left open
      {"\x9F\xA0\xFF", "\xC5\xB8\xC2\xA0\xC3\xBF"},
      {"\xC3\xA9\xE9", "\xC3\x83\xC2\xA9\xC3\xA9"},  // one bad byte decides for the whole text
  };
  for (const auto& c : cases) {
    EXPECT_EQ(ShownText(c.bytes), c.shown);
  }
}

TEST(ShownText, TakesNoFaultySequenceForUtf8) {
  const std::string cases[] = {
      "\xC0\x80",
      "\xC1\xBF",
      "\xE0\x9F\xBF",      // overlong
      "\xF0\x8F\xBF\xBF",  // overlong
      "\xED\xA0\x80",
      "\xED\xBF\xBF",  // surrogates
      "\xF4\x90\x80\x80",
      "\xF5\x80\x80\x80",
      "\xFF",
      "\xFE",  // past the last code
      "\xC3",
      "\xE2\x82",
      "\xF0\x90\x80",  // cut
      "\xE2\x82z",
      "\xC3z",
      "\xF0\x90z\x80",  // broken off
      "\xBF",
      "a\x80",  // no lead byte
  };
  for (const std::string& bytes : cases) {
    EXPECT_FALSE(IsUtf8(bytes)) << testing::PrintToString(bytes);
    EXPECT_TRUE(IsUtf8(ShownText(bytes)));
  }
}

}  // namespace
}  // namespace tallyo
