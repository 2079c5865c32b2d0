#include "text/lines.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "text/runtime_error.h"

namespace tallyo {
namespace {

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  Lines walk(text);
  while (const auto line = walk.Next()) {
    lines.emplace_back(*line);
  }
  return lines;
}

TEST(Lines, EndAtEachKindOfLineEnd) {
  const struct {
    std::string text;
    std::vector<std::string> lines;
  } cases[] = {
      {"", {}},
      {"\r\n", {""}},
      {"\n", {""}},
      {"\r", {""}},
      {"a", {"a"}},
      {"a\r\n", {"a"}},
      {"a\r\nb\nc\rd", {"a", "b", "c", "d"}},
      {"a\n\nb", {"a", "", "b"}},
      {"a\r\r\nb\n\r", {"a", "", "b", ""}},
      {std::string("a\0b\nc", 5), {std::string("a\0b", 3), "c"}},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(LinesOf(c.text), c.lines) << testing::PrintToString(c.text);
  }
}

TEST(Lines, HaveAFirstUnlessTheTextIsEmpty) {
  EXPECT_EQ(FirstLine("one\r\ntwo"), "one");
  EXPECT_EQ(FirstLine("\r\n"), "");
  EXPECT_THROW(static_cast<void>(FirstLine("")), RuntimeError);
}

}  // namespace
}  // namespace tallyo
