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

constexpr const char* kFile = "mysite.export";
constexpr const char* kText =
    ";Tallyo v1.1\r\nusr=Acme, acc=mysite\r\nupd=0.5, dfu=\r\n"
    "250,My Setup,setup.exe,http://files/setup.exe\r\nMy Setup\r\n"
    "7,<b>\xF0\x9F\x98\x80,b.zip,http://files/b.zip\r\n<b>\xF0\x9F\x98\x80\r\n";

class TextCommands : public ::testing::Test {
 protected:
  void GiveLinks() {
    ASSERT_EQ(c.Run({"account", "save", "Acme", "mysite"}), 0) << c.err;
    ASSERT_EQ(
        c.Run({"links", "add", "http://files/setup.exe", "--name", "My Setup", "--size", "250"}),
        0);
    ASSERT_EQ(c.Run({"links", "add", "http://files/b.zip", "--name", "<b>\xF0\x9F\x98\x80",
                     "--size", "7"}),
              0);
  }
  void Write(const std::string& text) {
    std::ofstream(c.folder.Path() / kFile, std::ios::binary) << text;
  }
  int Import() { return c.Run({"config", "import", "Acme", "mysite"}); }

  ConsoleRunner c;
};

TEST_F(TextCommands, ExportsTheConfiguration) {
  EXPECT_EQ(c.Run({"config", "export"}), 1);
  EXPECT_EQ(c.err, "tallyo-cli: no links are monitored; there is nothing to export\n");
  EXPECT_EQ(c.out, "");
  GiveLinks();
  EXPECT_EQ(c.Json({"config", "export"}), kText);
  EXPECT_EQ(c.status, 0);
  EXPECT_EQ(c.File(kFile), kText);
  const std::string folder = c.folder.Path().string();
  EXPECT_EQ(c.err, "[information] Tallyo - Data Export: Data exported to: \n" + folder + "/" +
                       kFile + "\nYou also need to copy: \n" + folder +
                       "/Data/\n to the new computer\n");
  EXPECT_EQ(c.Run({"config", "export"}), 0);
  std::string lines = kText;
  std::erase(lines, '\r');
  EXPECT_EQ(c.out, lines);

  std::filesystem::remove(c.folder.Path() / kFile);
  std::filesystem::create_directory(c.folder.Path() / kFile);
  EXPECT_EQ(c.Run({"config", "export"}), 1);
  EXPECT_EQ(c.err, "tallyo-cli: the configuration could not be written\n");
}

TEST_F(TextCommands, ImportsTheConfigurationOnce) {
  Write(kText);
  EXPECT_EQ(Import(), 0) << c.err;
  EXPECT_EQ(c.out, "2 links imported\n");
  EXPECT_EQ(c.err, "");
  EXPECT_EQ(c.Setting("User") + c.Setting("Account"), "Acmemysite");
  const auto links = c.Json({"links", "list"});
  ASSERT_EQ(links.size(), 2U);
  EXPECT_EQ(links[0], nlohmann::json::parse(R"({"number": "01", "size_kb": "250",
            "name": "My Setup", "reference": "setup.exe", "path": "http://files/setup.exe"})"));
  EXPECT_TRUE(c.server.Requests().empty());

  EXPECT_EQ(Import(), 1);
  EXPECT_EQ(c.err, "tallyo-cli: a configuration can only be imported where no link is monitored\n");
  EXPECT_EQ(c.out, "");
  EXPECT_EQ(c.Json({"links", "list"}), links);
  // What is added afterwards comes behind the imported links.
  ASSERT_EQ(c.AddLink("c.zip", "c"), 0);
  EXPECT_EQ(c.Json({"links", "list"})[2]["name"], "c");
  EXPECT_EQ(c.Json({"config", "import", "Acme", "mysite"})["imported"], 0);
  EXPECT_EQ(c.status, 1);

  ConsoleRunner other;
  std::filesystem::copy_file(c.folder.Path() / kFile, other.folder.Path() / kFile);
  EXPECT_EQ(other.Json({"config", "import", "Acme", "mysite"}),
            nlohmann::json::parse(R"({"imported": 2})"));
  EXPECT_EQ(other.status, 0);
}

TEST_F(TextCommands, SaysWhyNothingWasImported) {
  const std::string notFound =
      "[critical] Tallyo: File: " + (c.folder.Path() / kFile).string() + " not found\n";
  const std::string nothing = "tallyo-cli: nothing was imported\n";
  EXPECT_EQ(Import(), 1);
  EXPECT_EQ(c.err, notFound + nothing);
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"nothing\n", notFound},
      {"usr=ACME\n", "[critical] Tallyo: Wrong Account\n"},
      {"dfu=\n1,A,rA,pA\nB\n", ""},
  };
  for (const auto& [text, message] : cases) {
    Write(text);
    EXPECT_EQ(Import(), 1);
    EXPECT_EQ(c.err, message + nothing);
    EXPECT_EQ(c.out, "");
    EXPECT_EQ(c.Setting("User"), "");
    EXPECT_EQ(c.Json({"links", "list"}).size(), 0U);
  }
  EXPECT_EQ(c.Run({"config", "import", "Acme"}), 2);
  EXPECT_EQ(c.Run({"config"}), 2);
}

TEST_F(TextCommands, AsksAboutAFileOfAnotherVersion) {
  Write(";Tallyo v2.0\ndfu=\n1,A,rA,pA\nA\n");
  EXPECT_EQ(Import(), 1);  // without a terminal the answer is No
  EXPECT_THAT(c.err, HasSubstr("[question] Tallyo - Warning:: This data file was created"));
  EXPECT_THAT(c.err, HasSubstr("[critical] Tallyo: Load aborted by user\n"));
  EXPECT_EQ(c.Run({"--answer", "yes", "config", "import", "Acme", "mysite"}), 0);
  EXPECT_EQ(c.out, "1 link imported\n");
}

TEST_F(TextCommands, ShowTheirTextsWithoutChangingAnything) {
  GiveLinks();
  c.GiveCounters("<P>15 setup.exe\n<P>0 b.zip\n");
  ASSERT_EQ(c.Run({"refresh"}), 0);
  const std::size_t requests = c.server.Requests().size();
  const std::string store = c.File("settings.db");
  c.clock.Set(2026, 11, 16, 14, 5, 9);
  const std::string stats =
      " -- Tallyo v.1.1    11-16-2026  14:05:09 -- \r\n\r\n"
      "  My Setup:  15\r\n  <b>\xF0\x9F\x98\x80:  0\r\n";
  EXPECT_EQ(c.Json({"stats", "export"}), stats);
  EXPECT_EQ(c.status, 0);
  ASSERT_EQ(c.Run({"stats", "export"}), 0);
  EXPECT_EQ(c.out,
            " -- Tallyo v.1.1    11-16-2026  14:05:09 -- \n\n"
            "  My Setup:  15\n  <b>\xF0\x9F\x98\x80:  0\n");
  const std::string script = c.server.Url("/cgi-bin/Tallyo/tallyo.cgi?acc=mysite&flnk=setup.exe");
  EXPECT_EQ(c.Json({"counting-link", "My Setup"}), "Tallyo --  v.1.1\r\n\r\n" + script);
  EXPECT_EQ(c.status, 0);
  ASSERT_EQ(c.Run({"counting-link", "My Setup"}), 0);
  EXPECT_EQ(c.out, "Tallyo --  v.1.1\n\n" + script + "\n");
  EXPECT_EQ(c.Run({"counting-link", "my setup"}), 1);
  EXPECT_EQ(c.err, "tallyo-cli: no link is named my setup\n");
  EXPECT_EQ(c.out, "");
  EXPECT_EQ(c.server.Requests().size(), requests);
  EXPECT_EQ(c.File("settings.db"), store);
  EXPECT_FALSE(c.HasFile(kFile));
}

TEST_F(TextCommands, ShowTheStatisticsOfNoLinks) {
  EXPECT_EQ(c.Json({"stats", "export"}), " -- Tallyo v.1.1    06-15-2026  12:00:00 -- \r\n\r\n");
  EXPECT_TRUE(std::filesystem::is_empty(c.folder.Path()));
}

}  // namespace
}  // namespace tallyo::test
