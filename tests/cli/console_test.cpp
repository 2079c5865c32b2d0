#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pthread.h>

#include <csignal>
#include <filesystem>
#include <set>
#include <thread>

#include "platform/process_lock.h"
#include "tests/cli/console_runner.h"

namespace tallyo::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class Console : public ::testing::Test {
 protected:
  void SaveAccount() { ASSERT_EQ(c.Run({"account", "save", "Acme", "mysite"}), 0) << c.err; }

  // All files of the AppDir with their contents' sizes and times.
  std::set<std::string> Listing() {
    std::set<std::string> entries;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(c.folder.Path())) {
      entries.insert(entry.path().string() + " " +
                     std::to_string(entry.last_write_time().time_since_epoch().count()));
    }
    return entries;
  }

  ConsoleRunner c;
};

TEST_F(Console, GoesFromTheAccountToTheFirstCounterToTheByte) {
  ASSERT_EQ(c.Run({"account", "save", "Acme", "mysite"}), 0);
  EXPECT_EQ(c.out, "");
  EXPECT_EQ(c.err, "[information] Tallyo: Welcome Acme Your account information has been saved\n");
  EXPECT_EQ(c.Setting("BytesTransTotal"), "83");

  ASSERT_EQ(
      c.Run({"links", "add", "http://files/pub/setup.exe", "--name", "My Setup", "--size", "250"}),
      0);
  EXPECT_EQ(c.err, "[information] Tallyo: Operation succesful - My Setup Added\n");
  EXPECT_EQ(c.server.Requests().back(),
            "GET /cgi-bin/Tallyo/devstats.cgi?account=mysitef.txt&action=add&fryname=setup.exe"
            "&link=http://files/pub/setup.exe HTTP/1.1");
  EXPECT_EQ(c.Setting("BytesTransTotal"), "264");
  EXPECT_EQ(
      c.Json({"settings", "get", "01", "--key", "Software\\Quillmere\\Tallyo\\MonitorFiles\\01"}),
      "250,My Setup,setup.exe,http://files/pub/setup.exe");

  c.GiveCounters("<P>0 setup.exe\n");
  EXPECT_EQ(c.Json({"refresh"}), nlohmann::json::parse(R"([{"name": "My Setup", "counter": "0",
            "change": "0", "path": "http://files/pub/setup.exe"}])"));
  EXPECT_EQ(c.status, 0);
  EXPECT_EQ(c.Setting("BytesTransTotal"), "405");
  EXPECT_FALSE(c.HasFile("Data/2026/My Setup-Jun"));
  EXPECT_EQ(c.File("Data/LastRead.dat"), "My Setup=0,\r\n");
  EXPECT_EQ(c.Setting("PrevCheck"), "06-15-2026 43200");
}

TEST_F(Console, RefusesWrongCommandLinesWithTwo) {
  const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
      {{}, "subcommand is required"},
      {{"frob"}, "'frob' is not expected"},
      {{"links"}, "subcommand is required"},
      {{"links", "add", "http://files/a"}, "--name is required"},
      {{"daily"}, "NAME, or --all, is required"},
      {{"daily", "a", "--month", "jan"}, "jan not in"},
      {{"daily", "a", "b"}, "'b' is not expected"},
      {{"watch", "--for", "soon"}, "--for"},
      {{"watch", "--for", "-1"}, "--for"},
      {{"settings", "set", "a", "1x", "--type", "dword"}, "1x is no 32-bit number"},
      {{"settings", "set", "a", "4294967296", "--type", "dword"}, "no 32-bit number"},
      {{"--answer", "perhaps", "status"}, "perhaps not in"},
      {{"--service-url", "ftp://host/", "status"}, "--service-url"},
      {{"--service-url", "http://a\nb/", "status"}, "--service-url"},
  };
  for (const auto& [words, complaint] : cases) {
    SCOPED_TRACE(complaint);
    EXPECT_EQ(c.Run(words), 2);
    EXPECT_THAT(c.err, HasSubstr(complaint));
    EXPECT_EQ(c.out, "");
  }
  EXPECT_EQ(c.Run({"--help"}), 0);
  EXPECT_THAT(c.out, HasSubstr("account"));
  EXPECT_EQ(c.Run({"--version"}), 0);
  EXPECT_EQ(c.out, "tallyo-cli 1.1.0\n");
}

TEST_F(Console, KeepsThreeLinksThatAreAddedOneAfterTheOther) {
  SaveAccount();
  for (const char* name : {"a", "b", "c"}) {
    ASSERT_EQ(c.AddLink(std::string(name) + ".zip", name), 0) << c.err;
  }
  const auto links = c.Json({"links", "list"});
  ASSERT_EQ(links.size(), 3U);
  EXPECT_EQ(links[2], nlohmann::json::parse(R"({"number": "03", "size_kb": "", "name": "c",
            "reference": "c.zip", "path": "http://files/c.zip"})"));

  // With the switch off the first link of a session overwrites the last record, as in the window.
  ASSERT_EQ(c.Run({"settings", "set", "AppendAfterLast", "0"}), 0);
  ASSERT_EQ(c.AddLink("d.zip", "d"), 0);
  const auto after = c.Json({"links", "list"});
  ASSERT_EQ(after.size(), 3U);
  EXPECT_EQ(after[2]["name"], "d");
}

TEST_F(Console, BooksEachHitOnceWithARefreshEveryHour) {
  SaveAccount();
  ASSERT_EQ(c.AddLink("a.zip", "a"), 0);
  for (const int counter : {3, 10, 10, 12}) {
    c.GiveCounters("<P>" + std::to_string(counter) + " a.zip\n");
    ASSERT_EQ(c.Run({"refresh"}), 0);
    c.clock.Advance(3600);
  }
  EXPECT_EQ(c.File("Data/2026/a-Jun"), "15123\r\n15137\r\n15152\r\n");

  ASSERT_EQ(c.Run({"settings", "set", "CountOnce", "0"}), 0);
  c.GiveCounters("<P>13 a.zip\n");
  ASSERT_EQ(c.Run({"refresh"}), 0);
  EXPECT_EQ(c.File("Data/2026/a-Jun"), "15123\r\n15137\r\n15152\r\n15162\r\n");
}

TEST_F(Console, SaysWhyARefreshDidNotComeToItsEnd) {
  EXPECT_EQ(c.Run({"refresh"}), 1);
  EXPECT_THAT(c.err, HasSubstr("no account is set"));
  SaveAccount();
  EXPECT_EQ(c.Run({"refresh"}), 1);
  EXPECT_THAT(c.err, HasSubstr("no links are monitored"));
  ASSERT_EQ(c.AddLink("a.zip", "a"), 0);

  c.GiveCounters("no record here\n");
  EXPECT_EQ(c.Run({"refresh"}), 1);
  EXPECT_EQ(c.err, "tallyo-cli: the counters could not be read to their end\n");

  c.server.AnswerOnce("/Tallyo/accounts/mysite.txt",
                      "max=10,exp=01/15/2027,ban=yes,com=Acme,acc=mysite\n");
  EXPECT_EQ(c.Run({"refresh"}), 1);
  EXPECT_EQ(c.err,
            "[information] Tallyo: This account is banned. All access is forbiden\n"
            "tallyo-cli: the account is suspended\n");

  c.server.RefuseConnections();
  EXPECT_EQ(c.Run({"refresh"}), 1);
  EXPECT_EQ(c.err, "tallyo-cli: could not connect to " + c.server.HostAndPort() + "\n");
}

TEST_F(Console, RemovesALinkByName) {
  SaveAccount();
  for (const char* name : {"a", "b", "c"}) {
    ASSERT_EQ(c.AddLink(std::string(name) + ".zip", name), 0);
  }
  c.GiveCounters("<P>1 a.zip\n<P>2 b.zip\n<P>3 c.zip\n");
  ASSERT_EQ(c.Run({"refresh"}), 0);
  EXPECT_EQ(c.Run({"links", "remove", "B"}), 1);
  EXPECT_EQ(c.err, "tallyo-cli: no link is named B\n");
  ASSERT_EQ(c.Run({"links", "remove", "b"}), 0);
  EXPECT_EQ(c.err, "[information] Tallyo: Operation succesful - b Deleted\n");
  EXPECT_EQ(c.File("Data/LastRead.dat"), "a=1,c=3,\r\n");
  const auto links = c.Json({"links", "list"});
  ASSERT_EQ(links.size(), 2U);
  EXPECT_EQ(links[1]["number"], "02");
  EXPECT_EQ(links[1]["name"], "c");

  c.server.Answer(ConsoleRunner::kDelete, "<P>refused: unknown reference\n");
  EXPECT_EQ(c.Run({"links", "remove", "c"}), 1);
  EXPECT_EQ(c.Json({"links", "list"}).size(), 2U);
}

TEST_F(Console, RefusesLinksThatWouldBreakTheList) {
  SaveAccount();
  ASSERT_EQ(c.AddLink("a.zip", "a"), 0);
  const std::size_t before = c.server.Requests().size();
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"links", "add", "http://files/x,y", "--name", "b"},
        {"links", "add", "http://files/x", "--name", "b,c"},
        {"links", "add", "http://files/x", "--name", "b", "--size", "1,5"},
        {"links", "add", "http://files/x", "--name", ""},
        {"links", "add", "http://files/x", "--name", "a"}}) {
    EXPECT_EQ(c.Run(words), 1);
  }
  EXPECT_EQ(c.server.Requests().size(), before);
  // A line break reaches the account's check, but never the request that would carry it.
  EXPECT_EQ(c.Run({"links", "add", "http://files/x\r\ny", "--name", "b"}), 1);
  EXPECT_EQ(c.server.Requests().size(), before + 1);
  EXPECT_EQ(c.Json({"links", "list"}).size(), 1U);
}

TEST_F(Console, ShowsAMonthAsHoursByDays) {
  SaveAccount();
  ASSERT_EQ(c.AddLink("a.zip", "a"), 0);
  c.GiveCounters("<P>42 a.zip\n");
  ASSERT_EQ(c.Run({"refresh"}), 0);
  const auto month = c.Json({"daily", "a"});
  EXPECT_EQ(month["heading"], "Jun, 2026");
  EXPECT_EQ(month["days"], 30);
  ASSERT_EQ(month["cells"].size(), 24U);
  ASSERT_EQ(month["cells"][12].size(), 30U);
  EXPECT_EQ(month["cells"][12][14], "42");
  EXPECT_EQ(month["cells"][11][14], "");
  EXPECT_EQ(c.Json({"daily", "a", "--month", "May"})["days"], 31);
  EXPECT_EQ(c.Run({"daily", "nobody"}), 1);
}

TEST_F(Console, ShowsTheTenDetailsAfterAskingTheService) {
  SaveAccount();
  ASSERT_EQ(c.AddLink("a.zip", "a"), 0);
  const auto details = c.Json({"info"});
  ASSERT_EQ(details.size(), 10U);
  std::vector<std::string> values;
  for (const auto& detail : details) {
    values.push_back(detail["value"]);
  }
  EXPECT_THAT(values, ElementsAre("01/15/2014", "01/15/2027", "9", "83 Bytes", HasSubstr(" Bytes"),
                                  "1", "Unknown", "", "Normal", ""));
  EXPECT_EQ(details[3]["row"], 4);
  EXPECT_EQ(details[3]["item"], "Bytes transfered - this session");
}

TEST_F(Console, WritesNothingWhenItOnlyReads) {
  SaveAccount();
  ASSERT_EQ(c.AddLink("a.zip", "a"), 0);
  c.GiveCounters("<P>4 a.zip\n");
  ASSERT_EQ(c.Run({"refresh"}), 0);
  const auto before = Listing();
  const std::size_t requests = c.server.Requests().size();
  for (const std::vector<std::string>& words : {std::vector<std::string>{"status"},
                                                {"account", "show"},
                                                {"links", "list"},
                                                {"daily", "a"},
                                                {"settings", "list"},
                                                {"settings", "get", "User"}}) {
    EXPECT_EQ(c.Run(words), 0);
    EXPECT_NE(c.out, "");
  }
  EXPECT_EQ(Listing(), before);
  EXPECT_EQ(c.server.Requests().size(), requests);
  EXPECT_EQ(c.Json({"status"})[0]["counter"], "4");
}

TEST_F(Console, LetsOnlyOneProgramChangeAnAppDir) {
  SaveAccount();
  const ProcessLock other(c.folder.Path());
  EXPECT_EQ(c.Run({"refresh"}), 1);
  EXPECT_THAT(c.err, HasSubstr("Tallyo is running"));
  EXPECT_EQ(c.Run({"settings", "set", "DefURL", "x"}), 1);
  EXPECT_EQ(c.Json({"account", "show"})["account"], "mysite");
}

TEST_F(Console, AsksAboutADamagedListAndHeedsTheAnswer) {
  SaveAccount();
  ASSERT_EQ(c.AddLink("a.zip", "a"), 0);
  const std::string key = "Software\\Quillmere\\Tallyo\\MonitorFiles\\02";
  ASSERT_EQ(c.Run({"settings", "set", "02", "1,2,3,4,5", "--key", key}), 0);
  c.Run({"refresh"});
  EXPECT_THAT(c.err, HasSubstr("[question] Tallyo: A missconfiguration was found. Press Yes to "
                               "reset the program. Warning This will remove all saved data\n"));
  EXPECT_EQ(c.Json({"links", "list"}).size(), 2U);  // without a terminal the answer is No
  c.Run({"--answer", "yes", "refresh"});
  EXPECT_EQ(c.Json({"links", "list"}).size(), 0U);
  EXPECT_EQ(c.Setting("User"), "Acme");
}

TEST_F(Console, ShowsForeignBytesWithoutLettingThemActOnTheTerminal) {
  ASSERT_EQ(c.Run({"settings", "set", "n", "a\x1b[31m\x9d\n\xe9 \xc2\x9b"}), 0);
  EXPECT_EQ(c.Run({"settings", "get", "n"}), 0);
  EXPECT_EQ(c.out.find('\x1b'), std::string::npos);
  EXPECT_EQ(std::count(c.out.begin(), c.out.end(), '\n'), 1);
  EXPECT_EQ(c.Json({"settings", "get", "n"}), "a\x1b[31m\xc2\x9d\n\xc3\xa9 \xc3\x82\xe2\x80\xba");
}

TEST_F(Console, StoresNumbersAndListsSettingsWithTheirTypes) {
  ASSERT_EQ(c.Run({"settings", "set", "n", "4294967295", "--type", "dword", "--key", "A\\B"}), 0);
  EXPECT_EQ(c.Json({"settings", "list", "--key", "a"}),
            nlohmann::json::parse(R"([{"key": "A\\B", "name": "n", "type": "dword",
            "text": "-1"}])"));
}

TEST_F(Console, GoesOnWithAStoreThatCannotBeOpened) {
  std::filesystem::create_directories(c.folder.Path() / "settings.db");
  EXPECT_EQ(c.Run({"refresh"}), 1);
  EXPECT_THAT(c.err, HasSubstr("settings store"));
  EXPECT_EQ(std::count(c.err.begin(), c.err.end(), '\n'), 2);  // that, and why no refresh
  EXPECT_EQ(c.Run({"account", "save", "Acme", "mysite"}), 1);
  EXPECT_THAT(c.err, HasSubstr("could not be stored"));
  EXPECT_EQ(c.Run({"status"}), 0);
}

TEST_F(Console, EndsWithEverythingSavedWhenASignalComesDuringAFetch) {
  SaveAccount();
  ASSERT_EQ(c.AddLink("a.zip", "a"), 0);
  c.GiveCounters("<P>4 a.zip\n");
  ASSERT_EQ(c.Run({"refresh"}), 0);
  const std::size_t before = c.server.Requests().size();
  c.server.Hold(ConsoleRunner::kShow);
  std::thread killer([&, target = pthread_self()] {
    if (c.server.WaitForRequests(before + 2)) {
      pthread_kill(target, SIGTERM);
    }
  });
  c.clock.Advance(7200);
  EXPECT_EQ(c.Run({"refresh"}), 0);
  killer.join();
  EXPECT_EQ(c.File("Data/LastRead.dat"), "a=4,\r\n");
  EXPECT_EQ(c.Setting("PrevCheck"), "06-15-2026 43200");
}

TEST_F(Console, WatchesUntilItsTimeIsOver) {
  SaveAccount();
  ASSERT_EQ(c.AddLink("a.zip", "a"), 0);
  c.GiveCounters("<P>4 a.zip\n");
  EXPECT_EQ(c.Run({"watch", "--for", "0.1"}), 0);
  EXPECT_THAT(c.out, HasSubstr("12:00:00\nName"));
  EXPECT_EQ(c.File("Data/LastRead.dat"), "a=4,\r\n");
}

}  // namespace
}  // namespace tallyo::test
