#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/cli/console_runner.h"

namespace tallyo::test {
namespace {

// Whether a terminal would do anything but show this and go to the next line.
bool Acts(const std::string& text) {
  return std::ranges::any_of(text, [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return (byte < 0x20 && byte != '\n') || byte == 0x7F;
  });
}

TEST(LyingToATerminal, ActsOnNothingThatAServiceSays) {
  const std::string evil = "\x1b[2J\x07\r\x08\x7f\x1b]0;owned\x1b\\";
  ConsoleRunner c;
  ScriptedServer pages;
  pages.Answer("/page/list.html", "<A HREF=\"http://x/" + evil + "a.zip\">");
  ASSERT_EQ(c.Run({"account", "save", "Acme", "mysite"}), 0);
  ASSERT_EQ(c.AddLink("a", "A"), 0);
  c.GiveCounters("<P>1" + evil + " a\n");
  for (const std::vector<std::string>& words : {std::vector<std::string>{"refresh"},
                                                {"status"},
                                                {"status", "--csv"},
                                                {"stats", "export"},
                                                {"links", "scan", pages.Url("/page/list.html")},
                                                {"info"},
                                                {"daily", "A"}}) {
    c.Run(words);
    EXPECT_FALSE(Acts(c.out)) << words[0] << ": " << testing::PrintToString(c.out);
    EXPECT_FALSE(Acts(c.err)) << words[0] << ": " << testing::PrintToString(c.err);
  }
  EXPECT_EQ(c.Json({"refresh"})[0]["counter"], "1" + evil) << "JSON escapes by itself";
  for (const std::string& record : {"exp=" + evil + "\n", "com=" + evil + "\n", evil + "404",
                                    "max=" + evil + ",exp=01/15/2027,ban=" + evil + ",\n"}) {
    c.server.Answer("/Tallyo/accounts/mysite.txt", record);
    for (const char* command : {"refresh", "info"}) {
      c.Run({command});
      EXPECT_FALSE(Acts(c.out + c.err)) << testing::PrintToString(c.out + c.err);
    }
  }
  c.server.Answer("/cgi-bin/Tallyo/devstats.cgi?account=mysitef", "<P>refused: " + evil);
  c.AddLink("b", "B");
  EXPECT_FALSE(Acts(c.out + c.err)) << testing::PrintToString(c.out + c.err);
}

}  // namespace
}  // namespace tallyo::test
