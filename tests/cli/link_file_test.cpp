#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "tests/cli/console_runner.h"

namespace tallyo::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using Texts = std::vector<std::string>;

constexpr const char* kWrongLine = "a line is path,name[,reference[,size_kb]]";

class LinkFile : public ::testing::Test {
 protected:
  void SaveAccount() { ASSERT_EQ(c.Run({"account", "save", "Acme", "mysite"}), 0) << c.err; }

  // "line:name:outcome" of each line that the command reports on.
  Texts Add(const std::string& text, bool dryRun = false) {
    const std::string file = (files.Path() / "links.csv").string();
    std::ofstream(file, std::ios::binary) << text;
    Texts words = {"links", "add", "--from", file};
    if (dryRun) {
      words.emplace_back("--dry-run");
    }
    Texts told;
    for (const auto& line : c.Json(words)) {
      EXPECT_EQ(line.size(), 3U);
      told.push_back(line["line"].get<std::string>() + ":" + line["name"].get<std::string>() + ":" +
                     line["outcome"].get<std::string>());
    }
    return told;
  }

  // "number,size,name,reference,path" of each record.
  Texts Records() {
    Texts records;
    for (const auto& link : c.Json({"links", "list"})) {
      std::string record;
      for (const char* field : {"number", "size_kb", "name", "reference", "path"}) {
        record += (record.empty() ? "" : ",") + link[field].get<std::string>();
      }
      records.push_back(record);
    }
    return records;
  }

  // All files of the AppDir with their times.
  std::set<std::string> Listing() {
    std::set<std::string> entries;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(c.folder.Path())) {
      entries.insert(entry.path().string() + " " +
                     std::to_string(entry.last_write_time().time_since_epoch().count()));
    }
    return entries;
  }

  ConsoleRunner c;
  TempFolder files;
};

TEST_F(LinkFile, AddsTheLinkOfEachLine) {
  SaveAccount();
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
  EXPECT_THAT(Add("\xEF\xBB\xBFhttp://files/e.zip,e"), ElementsAre("1:e:added"));
  EXPECT_EQ(Records().size(), 5U);
}

TEST_F(LinkFile, GoesOnBehindALineThatFails) {
  SaveAccount();
  const std::string add = ConsoleRunner::kAdd;
  c.server.Answer(add + "&fryname=refused", "<P>refused: no\n");
  c.server.Answer(add + "&fryname=entry", "<P>F Exists\n");
  c.server.Answer(add + "&fryname=link", "<P>L Exists\n");
  c.server.AnswerRaw(add + "&fryname=silent", "", Then::Close);
  const std::vector<std::pair<std::string, std::string>> lines = {
      {"http://files/a.zip,a", "a:added"},
      {"only", std::string(":") + kWrongLine},
      {"a,b,c,d,e", std::string(":") + kWrongLine},
      {"http://files/b,\"b", ":a quote is not closed"},
      {"http://files/b,b\"b", ":a quote stands inside a field"},
      {"\"http://files/b\"b,b", ":something stands behind a quoted field"},
      {",b", "b:path and name must not be empty"},
      {"http://files/b,", ":path and name must not be empty"},
      {"http://files/b,\"b,c\"",
       "b,c:a link's path, name, reference and size must not hold a comma"},
      {"http://files/b,a", "a:a link named a is monitored already"},
      {"http://files/refused,r", "r:the service refused; nothing was changed"},
      {"http://files/entry,f", "f:the service has this reference already; nothing was changed"},
      {"http://files/link,l", "l:the service has this link already; nothing was changed"},
      {"http://files/z.zip,z", "z:added"},
      {"path,name", "name:added"},
  };
  std::string text;
  Texts told;
  for (const auto& [line, outcome] : lines) {
    text += line + "\n";
    told.push_back(std::to_string(told.size() + 1) + ":" + outcome);
  }
  EXPECT_EQ(Add(text), told);
  EXPECT_EQ(c.status, 1);
  EXPECT_THAT(Records(), ElementsAre("01,,a,a.zip,http://files/a.zip",
                                     "02,,z,z.zip,http://files/z.zip", "03,,name,,path"));

  const Texts silent = Add("http://files/silent,s\nhttp://files/y,y\n");
  EXPECT_THAT(silent, ElementsAre(HasSubstr("; nothing was changed"), "2:y:added"));
  EXPECT_EQ(c.status, 1);
}

TEST_F(LinkFile, SaysOfEveryLineThatTheAccountDoesNotAllowIt) {
  const std::string text = "http://files/a,a\nhttp://files/b,b\nhttp://files/c,c\n";
  const std::string noAccount = "no account is set; see 'tallyo-cli account save'";
  EXPECT_THAT(Add(text), ElementsAre("1:a:" + noAccount, "2:b:" + noAccount, "3:c:" + noAccount));
  EXPECT_EQ(c.status, 1);
  SaveAccount();
  c.server.Answer("/Tallyo/accounts/mysite.txt",
                  "opn=01/15/2014,max=2,exp=01/15/2027,ban=no,com=Acme,acc=mysite\n");
  EXPECT_THAT(Add(text),
              ElementsAre("1:a:added", "2:b:added", "3:c:the account has no slots left"));
  EXPECT_EQ(c.status, 1);
  EXPECT_EQ(Records().size(), 2U);
}

TEST_F(LinkFile, ADryRunChangesNothingAndAsksNobody) {
  SaveAccount();
  ASSERT_EQ(c.AddLink("a.zip", "a"), 0);
  const auto before = Listing();
  const std::size_t requests = c.server.Requests().size();
  EXPECT_THAT(
      Add("path,name\nhttp://files/b,b\nhttp://files/c,b\nhttp://files/a,a\nonly\n", true),
      ElementsAre("2:b:would be added", "3:b:a line before has this name",
                  "4:a:a link named a is monitored already", std::string("5::") + kWrongLine));
  EXPECT_EQ(c.status, 1);
  EXPECT_THAT(Add("http://files/b,b\n", true), ElementsAre("1:b:would be added"));
  EXPECT_EQ(c.status, 0);
  EXPECT_EQ(c.err, "");
  EXPECT_EQ(Listing(), before);
  EXPECT_EQ(c.server.Requests().size(), requests);

  ConsoleRunner fresh;
  EXPECT_EQ(
      fresh.Run({"links", "add", "--from", (files.Path() / "links.csv").string(), "--dry-run"}), 0);
  EXPECT_EQ(fresh.out, "Line  Name  Outcome\n   1  b     would be added\n");
  EXPECT_TRUE(std::filesystem::is_empty(fresh.folder.Path()));
}

TEST_F(LinkFile, HoldsNoLinksOrIsNoFile) {
  for (const char* text : {"", "\n\r\n", "path,name\n", "\xEF\xBB\xBF"}) {
    EXPECT_THAT(Add(text), IsEmpty());
    EXPECT_EQ(c.status, 0);
    EXPECT_THAT(Add(text, true), IsEmpty());
  }
  for (const std::string& file : {(files.Path() / "none").string(), files.Path().string()}) {
    EXPECT_EQ(c.Run({"links", "add", "--from", file}), 1);
    EXPECT_EQ(c.out, "");
    EXPECT_THAT(c.err, HasSubstr("tallyo-cli: could not read " + file));
  }
  EXPECT_EQ(c.Run({"links", "add", "--from", "f", "http://files/a"}), 2);
  EXPECT_EQ(c.Run({"links", "add", "--from", "f", "--name", "a"}), 2);
  EXPECT_EQ(c.Run({"links", "add", "http://files/a", "--name", "a", "--dry-run"}), 2);
  EXPECT_EQ(c.Run({"links", "add"}), 2);
}

TEST_F(LinkFile, LeavesForeignTextsAsTheyAre) {
  SaveAccount();
  const std::string emoji = "\xF0\x9F\x98\x80";
  const std::string odd = "<b>&amp;" + emoji + "\x01\x1b[31m\x7F";
  const std::string longName(4000, 'n');
  EXPECT_THAT(Add("http://files/" + emoji + "<i>," + odd + "\nhttp://files/l," + longName + "\n" +
                  "http://files/e,caf\xE9\nhttp://files/bad\x01,bad\n"),
              ElementsAre("1:" + odd + ":added", "2:" + longName + ":added", "3:caf\xC3\xA9:added",
                          HasSubstr("; nothing was changed")));
  EXPECT_THAT(c.server.Requests(),
              testing::Contains(HasSubstr("&link=http://files/" + emoji + "<i> HTTP/1.1")));
  EXPECT_THAT(
      Records(),
      ElementsAre("01,," + odd + "," + emoji + "<i>,http://files/" + emoji + "<i>",
                  "02,," + longName + ",l,http://files/l", "03,,caf\xC3\xA9,e,http://files/e"));
  ASSERT_EQ(c.Run({"links", "list"}), 0);
  EXPECT_EQ(c.out.find_first_of("\x01\x1b\x7F"), std::string::npos);
  SqliteStore store(c.folder.Path() / "settings.db", StoreAccess::ReadOnly);
  EXPECT_EQ(QuerySettingValue(store, Hive::LocalMachine, std::string(names::MonitorFilesKey) + "03",
                              "03"),
            ",caf\xE9,e,http://files/e");
}

TEST_F(LinkFile, ScansAPageForLinks) {
  ScriptedServer web;
  web.Answer("/page", "<A HREF=\"a.zip\"><A HREF=\"http://x/\x1b[31m\xE9\"><A HREF=\"a.zip\">");
  web.Answer("/none", "");
  EXPECT_EQ(c.Json({"links", "scan", web.Url("/page")}),
            nlohmann::json({web.Url("/a.zip"), "http://x/\x1b[31m\xC3\xA9", web.Url("/a.zip")}));
  EXPECT_EQ(c.status, 0);
  EXPECT_EQ(c.Json({"links", "scan", web.Url("/none")}), nlohmann::json::array());
  EXPECT_EQ(c.status, 0);
  EXPECT_EQ(c.Run({"links", "scan", web.Url("/page")}), 0);
  EXPECT_TRUE(c.out.starts_with(web.Url("/a.zip") + "\nhttp://x/")) << c.out;
  EXPECT_EQ(c.out.find('\x1b'), std::string::npos);
  EXPECT_EQ(std::count(c.out.begin(), c.out.end(), '\n'), 3);
  EXPECT_THAT(Records(), IsEmpty());
  EXPECT_THAT(c.server.Requests(), IsEmpty());

  for (const std::string address : {"http://f/ab", "files/pub/page", "http://h/a\nb", ""}) {
    EXPECT_EQ(c.Run({"links", "scan", address}), 1) << address;
    EXPECT_NE(c.err, "");
    EXPECT_EQ(c.out, "");
  }
  web.RefuseConnections();
  EXPECT_EQ(c.Run({"links", "scan", web.Url("/page")}), 1);
  EXPECT_EQ(c.err, "tallyo-cli: could not connect to " + web.HostAndPort() + "\n");
}

}  // namespace
}  // namespace tallyo::test
