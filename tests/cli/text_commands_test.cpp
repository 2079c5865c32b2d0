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

constexpr const char* kFile = "mysite.export";
constexpr const char* kText =
    ";Tallyo v1.1\r\nusr=Acme, acc=mysite\r\nupd=0.5, dfu=\r\n"
    ",My Setup,setup.exe,http://files/setup.exe\r\nMy Setup\r\n"
    ",<b>\xF0\x9F\x98\x80,b.zip,http://files/b.zip\r\n<b>\xF0\x9F\x98\x80\r\n";

class TextCommands : public ::testing::Test {
 protected:
  void GiveLinks() {
    c.SaveAccount();
    ASSERT_EQ(c.AddLink("setup.exe", "My Setup"), 0);
    ASSERT_EQ(c.AddLink("b.zip", "<b>\xF0\x9F\x98\x80"), 0);
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
  EXPECT_EQ(Import(), 0);
  EXPECT_EQ(c.out, "2 links imported\n");
  EXPECT_EQ(c.err, "");
  EXPECT_EQ(c.Setting("User") + c.Setting("Account"), "Acmemysite");
  EXPECT_TRUE(c.server.Requests().empty());
  const auto links = c.Json({"links", "list"});
  ASSERT_EQ(links.size(), 2U);
  EXPECT_EQ(links[0], nlohmann::json::parse(R"({"number": "01", "size_kb": "",
            "name": "My Setup", "reference": "setup.exe", "path": "http://files/setup.exe"})"));

  EXPECT_EQ(c.Json({"config", "import", "Acme", "mysite"})["imported"], 0);
  EXPECT_EQ(c.status, 1);
  EXPECT_EQ(c.err, "tallyo-cli: a configuration can only be imported where no link is monitored\n");
  EXPECT_EQ(c.Json({"links", "list"}), links);
  // What is added afterwards comes behind the imported links.
  ASSERT_EQ(c.AddLink("c.zip", "c"), 0);
  EXPECT_EQ(c.Json({"links", "list"})[2]["name"], "c");
}

TEST_F(TextCommands, SaysWhyNothingWasImported) {
  const std::string notFound =
      "[critical] Tallyo: File: " + (c.folder.Path() / kFile).string() + " not found\n";
  const Table<const char*, std::string> cases = {
      {"nothing\n", notFound},
      {"usr=ACME\n", "[critical] Tallyo: Wrong Account\n"},
      {"dfu=\n1,A,rA,pA\nB\n", ""},
  };
  for (const auto& [text, message] : cases) {
    Write(text);
    EXPECT_EQ(Import(), 1);
    EXPECT_EQ(c.err, message + "tallyo-cli: nothing was imported\n");
    EXPECT_EQ(c.out, "");
    EXPECT_EQ(c.Setting("User"), "");
    EXPECT_EQ(c.Json({"links", "list"}).size(), 0U);
  }
  Write(";Tallyo v2.0\ndfu=\n1,A,rA,pA\nA\n");
  EXPECT_EQ(Import(), 1);  // without a terminal the answer is No
  EXPECT_THAT(c.err, HasSubstr("[question] Tallyo - Warning:: This data file was created"));
  EXPECT_THAT(c.err, HasSubstr("[critical] Tallyo: Load aborted by user\n"));
  EXPECT_EQ(c.Run({"--answer", "yes", "config", "import", "Acme", "mysite"}), 0);
  EXPECT_EQ(c.out, "1 link imported\n");
}

TEST_F(TextCommands, ShowTheStatisticsAndTheCountingLink) {
  GiveLinks();
  c.Refresh("<P>15 setup.exe\n<P>0 b.zip\n");
  c.clock.Set(2026, 11, 16, 14, 5, 9);
  EXPECT_EQ(c.Json({"stats", "export"}),
            " -- Tallyo v.1.1    11-16-2026  14:05:09 -- \r\n\r\n"
            "  My Setup:  15\r\n  <b>\xF0\x9F\x98\x80:  0\r\n");
  ASSERT_EQ(c.Run({"counting-link", "My Setup"}), 0);
  EXPECT_EQ(c.out, "Tallyo --  v.1.1\n\n" +
                       c.server.Url("/cgi-bin/Tallyo/tallyo.cgi?acc=mysite&flnk=setup.exe") + "\n");
  EXPECT_EQ(c.Run({"counting-link", "my setup"}), 1);
  EXPECT_EQ(c.err, "tallyo-cli: no link is named my setup\n");
  EXPECT_EQ(c.out, "");
}

}  // namespace
}  // namespace tallyo::test
