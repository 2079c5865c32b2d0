#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "tests/cli/console_runner.h"

namespace tallyo::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* kWrongLine = ":a line is path,name[,reference[,size_kb]]";

class LinkFile : public ::testing::Test {
 protected:
  // "line:name:outcome" of each line that the command reports on.
  Words Add(const std::string& text, bool dryRun = false) {
    std::ofstream(file, std::ios::binary) << text;
    Words words = {"links", "add", "--from", file};
    if (dryRun) {
      words.emplace_back("--dry-run");
    }
    Words told;
    for (const auto& line : c.Json(words)) {
      told.push_back(line["line"].get<std::string>() + ":" + line["name"].get<std::string>() + ":" +
                     line["outcome"].get<std::string>());
    }
    return told;
  }

  // "number,size,name,reference,path" of each record.
  Words Records() {
    Words records;
    for (const auto& link : c.Json({"links", "list"})) {
      std::string record;
      for (const char* field : {"number", "size_kb", "name", "reference", "path"}) {
        record += (record.empty() ? "" : ",") + link[field].get<std::string>();
      }
      records.push_back(record);
    }
    return records;
  }

  ConsoleRunner c;
  TempFolder files;
  const std::string file = (files.Path() / "links.csv").string();
};

TEST_F(LinkFile, AddsTheLinkOfEachLine) {
  c.SaveAccount();
  EXPECT_THAT(Add("\xEF\xBB\xBFpath,name,reference,size_kb\r\n"
                  "http://files/a.zip,a\r\n"
                  "\r\n"
                  "\"http://files/b.zip\",\"say \"\"b\"\"\",mine,250\r"
                  "http://files/pub/,c,,1.5\n"
                  "http://files/d.zip,d,"),
              ElementsAre("2:a:added", "4:say \"b\":added", "5:c:added", "6:d:added"));
  EXPECT_EQ(c.status, 0);
  EXPECT_THAT(
      Records(),
      ElementsAre("01,,a,a.zip,http://files/a.zip", "02,250,say \"b\",mine,http://files/b.zip",
                  "03,1.5,c,,http://files/pub/", "04,,d,d.zip,http://files/d.zip"));
}

TEST_F(LinkFile, GoesOnBehindALineThatFails) {
  c.SaveAccount();
  const std::string add = ConsoleRunner::kAdd;
  c.server.Answer(add + "&fryname=refused", "<P>refused: no\n");
  c.server.Answer(add + "&fryname=entry", "<P>F Exists\n");
  c.server.Answer(add + "&fryname=link", "<P>L Exists\n");
  c.server.AnswerRaw(add + "&fryname=silent", "", Then::Close);
  const std::string comma = ":a link's path, name, reference and size must not hold a comma";
  const std::string control =
      ":a link's path, name, reference and size must not hold a line break or another control "
      "character";
  const std::vector<std::pair<std::string, std::string>> lines = {
      {"http://files/a.zip,a", "a:added"},
      {"only", kWrongLine},
      {"a,b,c,d,e", kWrongLine},
      {"http://files/b,\"b", ":a quote is not closed"},
      {"http://files/b,b\"b", ":a quote stands inside a field"},
      {"\"http://files/b\"b,b", ":something stands behind a quoted field"},
      {",b", "b:path and name must not be empty"},
      {"http://files/b,", ":path and name must not be empty"},
      {"\"http://files/b,c\",b", "b" + comma},
      {"http://files/b,\"b,c\"", "b,c" + comma},
      {"http://files/b,b,\"b,c\"", "b" + comma},
      {"http://files/b,b,,\"1,5\"", "b" + comma},
      {"http://files/\x01,b", "b" + control},
      {"http://files/b,b,b\t", "b" + control},
      {"http://files/b,b=c", "b=c:a link's name must not hold a \"=\""},
      {"http://files/b,a", "a:a link named a is monitored already"},
      {"http://files/refused,r", "r:the service refused; nothing was changed"},
      {"http://files/entry,f", "f:the service has this reference already; nothing was changed"},
      {"http://files/link,l", "l:the service has this link already; nothing was changed"},
      {"http://files/z?z=1,z", "z:added"},
      {"path,name", "name:added"},
  };
  std::string text;
  Words told;
  for (const auto& [line, outcome] : lines) {
    text += line + "\n";
    told.push_back(std::to_string(told.size() + 1) + ":" + outcome);
  }
  EXPECT_EQ(Add(text), told);
  EXPECT_EQ(c.status, 1);
  EXPECT_THAT(Records(), ElementsAre("01,,a,a.zip,http://files/a.zip",
                                     "02,,z,z?z=1,http://files/z?z=1", "03,,name,,path"));
  EXPECT_THAT(Add("http://files/silent,s\nhttp://files/y,y\n"),
              ElementsAre(HasSubstr("; nothing was changed"), "2:y:added"));
}

TEST_F(LinkFile, SaysOfEveryLineThatTheAccountDoesNotAllowIt) {
  const std::string text = "http://files/a,a\nhttp://files/b,b\nhttp://files/c,c\n";
  const std::string noAccount = "no account is set; see 'tallyo-cli account save'";
  EXPECT_THAT(Add(text), ElementsAre("1:a:" + noAccount, "2:b:" + noAccount, "3:c:" + noAccount));
  EXPECT_EQ(c.status, 1);
  c.SaveAccount();
  c.server.Answer("/Tallyo/accounts/mysite.txt",
                  "opn=01/15/2014,max=2,exp=01/15/2027,ban=no,com=Acme,acc=mysite\n");
  EXPECT_THAT(Add(text),
              ElementsAre("1:a:added", "2:b:added", "3:c:the account has no slots left"));
  EXPECT_EQ(Records().size(), 2U);
}

TEST_F(LinkFile, ADryRunChangesNothingAndAsksNobody) {
  c.MonitorLinks({"a"});
  const auto before = c.Listing();
  const std::size_t requests = c.server.Requests().size();
  EXPECT_THAT(
      Add("path,name\nhttp://files/b,b\nhttp://files/c,b\nhttp://files/a,a\nonly\n", true),
      ElementsAre("2:b:would be added", "3:b:a line before has this name",
                  "4:a:a link named a is monitored already", std::string("5:") + kWrongLine));
  EXPECT_EQ(c.status, 1);
  EXPECT_THAT(Add("http://files/b,b\n", true), ElementsAre("1:b:would be added"));
  EXPECT_EQ(c.status, 0);
  EXPECT_EQ(c.err, "");
  EXPECT_EQ(c.Listing(), before);
  EXPECT_EQ(c.server.Requests().size(), requests);

  ConsoleRunner fresh;
  EXPECT_EQ(fresh.Run({"links", "add", "--from", file, "--dry-run"}), 0);
  EXPECT_EQ(fresh.out, "Line  Name  Outcome\n   1  b     would be added\n");
  EXPECT_TRUE(std::filesystem::is_empty(fresh.folder.Path()));
}

TEST_F(LinkFile, HoldsNoLinksOrIsNoFile) {
  for (const char* text : {"", "\n\r\n", "path,name\n", "\xEF\xBB\xBF"}) {
    EXPECT_THAT(Add(text), IsEmpty());
    EXPECT_EQ(c.status, 0);
  }
  for (const std::string& none : {(files.Path() / "none").string(), files.Path().string()}) {
    EXPECT_EQ(c.Run({"links", "add", "--from", none}), 1);
    EXPECT_EQ(c.out, "");
    EXPECT_THAT(c.err, HasSubstr("tallyo-cli: could not read " + none));
  }
}

TEST_F(LinkFile, ScansAPageForLinks) {
  ScriptedServer web;
  web.Answer("/page", "<A HREF=\"a.zip\"><A HREF=\"http://x/\x1b[31m\xE9\"><A HREF=\"a.zip\">");
  web.Answer("/none", "");
  EXPECT_EQ(c.Json({"links", "scan", web.Url("/page")}),
            nlohmann::json({web.Url("/a.zip"), "http://x/\x1b[31m\xC3\xA9", web.Url("/a.zip")}));
  EXPECT_EQ(c.Json({"links", "scan", web.Url("/none")}), nlohmann::json::array());
  EXPECT_EQ(c.Run({"links", "scan", web.Url("/page")}), 0);
  EXPECT_EQ(c.out, web.Url("/a.zip") + "\nhttp://x/\uFFFD[31m\u00E9\n" + web.Url("/a.zip") + "\n");
  for (const std::string address : {"http://f/ab", "files/pub/page", "http://h/a\nb", ""}) {
    EXPECT_EQ(c.Run({"links", "scan", address}), 1) << address;
    EXPECT_NE(c.err, "");
    EXPECT_EQ(c.out, "");
  }
  EXPECT_THAT(c.server.Requests(), IsEmpty());
}

}  // namespace
}  // namespace tallyo::test
