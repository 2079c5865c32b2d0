#include "text/lines.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/table.h"
#include "text/runtime_error.h"

namespace tallyo {
namespace {

TEST(Lines, EndAtEachKindOfLineEnd) {
  const test::Table<std::string, std::vector<std::string>> cases = {
      {"", {}},
      {"\r\n", {""}},
      {"a\r\nb\nc\rd", {"a", "b", "c", "d"}},
      {"a\r\r\nb\n\r", {"a", "", "b", ""}},
      {std::string("a\0b\nc", 5), {std::string("a\0b", 3), "c"}}};
  for (const auto& [text, expected] : cases) {
    std::vector<std::string> lines;
    Lines walk(text);
    while (const auto line = walk.Next()) {
      lines.emplace_back(*line);
    }
    EXPECT_EQ(lines, expected) << testing::PrintToString(text);
  }
  EXPECT_EQ(FirstLine("\r\n"), "");
  EXPECT_THROW(static_cast<void>(FirstLine("")), RuntimeError);
}

}  // namespace
}  // namespace tallyo
