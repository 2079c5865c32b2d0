#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "tests/cli/console_runner.h"
#include "tests/support/table.h"

namespace tallyo::test {
namespace {

using ::testing::HasSubstr;

constexpr const char* kHeading = "name,date,hour,hits\n";

// Links a and b, of which a has a history; the clock stands at the 15th of June 2026.
class DailyCommand : public ::testing::Test {
 protected:
  DailyCommand() {
    Record("01", "1,b,rb,pb");
    Record("02", "1,a,ra,pa");
    Keep("a-Jun", "15124\r\n3023007\r\n0100150\r\n010040000\r\n150912\r\n00123\r\n1512\r\n");
    Keep("a-Feb", "30001\n");
    Keep("a-Mar", "15121\n15122\r1512many");
    Keep("gone-Jun", "02031\r\n");
  }
  void Record(const std::string& number, const std::string& text) {
    ASSERT_EQ(c.Run({"settings", "set", number, text, "--key",
                     std::string(names::MonitorFilesKey) + number}),
              0);
  }
  void Keep(const std::string& file, const std::string& text) {
    const std::filesystem::path folder = c.folder.Path() / "Data" / "2026";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / file, std::ios::binary) << text;
  }

  ConsoleRunner c;
};

TEST_F(DailyCommand, PrintsEveryHourThatHasAnEntryAsCsv) {
  const std::string a =
      "a,2026-06-01,0,150\na,2026-06-01,0,40000\na,2026-06-15,9,12\na,2026-06-15,12,4\n"
      "a,2026-06-30,23,7\n";
  const std::string march = "a,2026-03-15,12,1\na,2026-03-15,12,2\na,2026-03-15,12,0\n";
  const Table<Words, std::string> cases = {{{"a"}, a},
                                           {{"b"}, ""},
                                           {{"a", "--month", "Feb"}, "a,2026-02-30,0,1\n"},
                                           {{"a", "--month", "Mar"}, march},
                                           {{"a", "--month", "Dec"}, ""},
                                           {{"gone"}, "gone,2026-06-02,3,1\n"},
                                           {{"--all"}, a}};
  for (const auto& [given, rows] : cases) {
    Words words = {"daily", "--csv"};
    words.insert(words.end(), given.begin(), given.end());
    EXPECT_EQ(c.Run(words), 0) << given.front();
    EXPECT_EQ(c.out, kHeading + rows);
    EXPECT_EQ(c.err, "");
  }
  EXPECT_EQ(c.Run({"daily", "nobody", "--csv"}), 1);
  EXPECT_EQ(c.out, "");
  const auto cells = c.Json({"daily", "a"})["cells"];
  EXPECT_EQ(cells[23][29], "7");
  EXPECT_EQ(cells[9][14], "") << "the grid ends at the hour with 40,000 hits";
}

TEST_F(DailyCommand, ShowsAllLinksInTheirOrder) {
  Record("03", "1,caf\xE9 \"q\",rc,pc");
  Keep("caf\xE9 \"q\"-Jun", "01023\r\n");
  const auto links = c.Json({"daily", "--all"});
  ASSERT_EQ(links.size(), 3U);
  const Words listed = {"b", "a", "caf\xC3\xA9 \"q\""};
  const Words hits = {"", "4", ""};
  for (std::size_t i = 0; i < listed.size(); ++i) {
    EXPECT_EQ(links[i]["name"], listed[i]);
    EXPECT_EQ(links[i]["heading"], "Jun, 2026");
    EXPECT_EQ(links[i]["days"], 30);
    ASSERT_EQ(links[i]["cells"].size(), 24U);
    ASSERT_EQ(links[i]["cells"][12].size(), 30U);
    EXPECT_EQ(links[i]["cells"][12][14], hits[i]);
  }
  EXPECT_EQ(links[2]["cells"][2][0], "3");
  EXPECT_EQ(c.Json({"daily", "--all", "--month", "May"})[2]["days"], 31);
  ASSERT_EQ(c.Run({"daily", "--all"}), 0);
  EXPECT_TRUE(c.out.starts_with("b, Jun, 2026\n")) << c.out;
  EXPECT_THAT(c.out, HasSubstr("\n\na, Jun, 2026\n"));
}

TEST_F(DailyCommand, ShowsNothingOfNoLinks) {
  ConsoleRunner empty;
  EXPECT_EQ(empty.Json({"daily", "--all"}), nlohmann::json::array());
  EXPECT_EQ(empty.Run({"daily", "--all"}), 0);
  EXPECT_EQ(empty.out, "No links are monitored.\n");
  EXPECT_EQ(empty.Json({"stats", "export"}),
            " -- Tallyo v.1.1    06-15-2026  12:00:00 -- \r\n\r\n");
  EXPECT_TRUE(std::filesystem::is_empty(empty.folder.Path()));
}

}  // namespace
}  // namespace tallyo::test
