#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "tests/cli/console_runner.h"

namespace tallyo::test {
namespace {

using ::testing::HasSubstr;
using Texts = std::vector<std::string>;

constexpr const char* kHeading = "name,date,hour,hits\n";

// Links a and b, of which a has a history; the clock stands at the 15th of June 2026.
class DailyCommand : public ::testing::Test {
 protected:
  DailyCommand() {
    Record("01", "1,b,rb,pb");
    Record("02", "1,a,ra,pa");
    Keep("a-Jun", "15124\r\n3023007\r\n0100150\r\n010040000\r\n150912\r\n");
    Keep("a-Feb", "30001\r\n");
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
  const struct {
    Texts words;
    std::string rows;
  } cases[] = {{{"a"}, a},
               {{"b"}, ""},
               {{"a", "--month", "Feb"}, "a,2026-02-30,0,1\n"},
               {{"a", "--month", "Dec"}, ""},
               {{"gone"}, "gone,2026-06-02,3,1\n"},
               {{"--all"}, a}};
  for (const auto& given : cases) {
    Texts words = {"daily", "--csv"};
    words.insert(words.end(), given.words.begin(), given.words.end());
    EXPECT_EQ(c.Run(words), 0) << given.words.front();
    EXPECT_EQ(c.out, kHeading + given.rows);
    EXPECT_EQ(c.err, "");
  }
  EXPECT_EQ(c.Run({"daily", "nobody", "--csv"}), 1);
  EXPECT_EQ(c.out, "");
}

TEST_F(DailyCommand, PassesOverWhatIsNoEntry) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"", ""},
      {"\r\n15\r\n1512\r\n", ""},
      {"00123\r\n32123\r\n15243\r\nxx123\r\n", ""},
      {"15121\n15122\r15123", "a,2026-06-15,12,1\na,2026-06-15,12,2\na,2026-06-15,12,3\n"},
      {"1512many\r\n", "a,2026-06-15,12,0\n"},
      {"15121234567890123\r\n", "a,2026-06-15,12,1234567890123\n"}};
  for (const auto& [content, rows] : cases) {
    Keep("a-Jun", content);
    EXPECT_EQ(c.Run({"daily", "a", "--csv"}), 0);
    EXPECT_EQ(c.out, kHeading + rows) << content;
  }
}

TEST_F(DailyCommand, ShowsHoursInCsvThatTheGridHasNoPlaceFor) {
  const auto cells = c.Json({"daily", "a"})["cells"];
  EXPECT_EQ(cells[12][14], "4");
  EXPECT_EQ(cells[23][29], "7");
  EXPECT_EQ(cells[0][0], "150");
  EXPECT_EQ(cells[9][14], "") << "the grid ends at the hour with 40,000 hits";
  ASSERT_EQ(c.Run({"daily", "a", "--csv"}), 0);
  EXPECT_THAT(c.out, HasSubstr("a,2026-06-15,9,12\n"));
}

TEST_F(DailyCommand, ShowsAllLinksInTheirOrder) {
  Record("03", "1,caf\xE9 \"q\",rc,pc");
  Keep("caf\xE9 \"q\"-Jun", "01023\r\n");
  const auto links = c.Json({"daily", "--all"});
  ASSERT_EQ(links.size(), 3U);
  const Texts listed = {"b", "a", "caf\xC3\xA9 \"q\""};
  const Texts hits = {"", "4", ""};
  for (std::size_t i = 0; i < listed.size(); ++i) {
    ASSERT_EQ(links[i].size(), 4U);
    EXPECT_EQ(links[i]["name"], listed[i]);
    EXPECT_EQ(links[i]["heading"], "Jun, 2026");
    EXPECT_EQ(links[i]["days"], 30);
    ASSERT_EQ(links[i]["cells"].size(), 24U);
    ASSERT_EQ(links[i]["cells"][12].size(), 30U);
    EXPECT_EQ(links[i]["cells"][12][14], hits[i]);
  }
  EXPECT_EQ(links[2]["cells"][2][0], "3");
  const auto may = c.Json({"daily", "--all", "--month", "May"});
  EXPECT_EQ(may[2]["days"], 31);
  EXPECT_EQ(may[2]["cells"][2].size(), 31U);

  ASSERT_EQ(c.Run({"--json", "daily", "--all"}), 0);
  EXPECT_LT(c.out.find("\"name\""), c.out.find("\"heading\""));
  EXPECT_LT(c.out.find("\"heading\""), c.out.find("\"days\""));
  EXPECT_LT(c.out.find("\"days\""), c.out.find("\"cells\""));
  ASSERT_EQ(c.Run({"daily", "--all"}), 0);
  EXPECT_TRUE(c.out.starts_with("b, Jun, 2026\n")) << c.out;
  EXPECT_THAT(c.out, HasSubstr("\n\na, Jun, 2026\n"));
  EXPECT_EQ(c.Run({"daily", "--all", "--csv"}), 0);
  EXPECT_THAT(c.out, HasSubstr("\n\"caf\xC3\xA9 \"\"q\"\"\",2026-06-01,2,3\n"));
}

TEST_F(DailyCommand, ShowsNothingOfNoLinks) {
  ConsoleRunner empty;
  EXPECT_EQ(empty.Json({"daily", "--all"}), nlohmann::json::array());
  EXPECT_EQ(empty.Run({"daily", "--all", "--csv"}), 0);
  EXPECT_EQ(empty.out, kHeading);
  EXPECT_EQ(empty.Run({"daily", "--all"}), 0);
  EXPECT_EQ(empty.out, "No links are monitored.\n");
  EXPECT_TRUE(std::filesystem::is_empty(empty.folder.Path()));
}

TEST_F(DailyCommand, TakesOneLinkOrAll) {
  EXPECT_EQ(c.Run({"daily", "a", "--all"}), 2);
  EXPECT_EQ(c.Run({"daily"}), 2);
  EXPECT_EQ(c.Run({"daily", "--csv"}), 2);
}

}  // namespace
}  // namespace tallyo::test
