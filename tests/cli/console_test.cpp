#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "platform/file_descriptor.h"
#include "platform/process_lock.h"
#include "tests/cli/console_runner.h"

namespace tallyo::test {
namespace {

using ::testing::HasSubstr;

class Console : public ::testing::Test {
 protected:
  ConsoleRunner c;
};

TEST_F(Console, GoesFromTheAccountToTheFirstCounterToTheByte) {
  c.SaveAccount();
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
  EXPECT_EQ(c.File("Data/LastRead.dat"), "My Setup=0,\r\n");
  EXPECT_EQ(c.Setting("PrevCheck"), "06-15-2026 43200");
}

TEST_F(Console, RefusesWrongCommandLinesWithTwo) {
  const std::vector<std::pair<Words, std::string>> cases = {
      {{}, "subcommand is required"},
      {{"frob"}, "'frob' is not expected"},
      {{"links"}, "subcommand is required"},
      {{"links", "add"}, "PATH, or --from"},
      {{"links", "add", "http://files/a"}, "--name is required"},
      {{"links", "add", "--from", "f", "http://files/a"}, "PATH excludes --from"},
      {{"links", "add", "--from", "f", "--name", "a"}, "--name excludes --from"},
      {{"links", "add", "http://files/a", "--name", "a", "--dry-run"}, "--dry-run requires --from"},
      {{"daily"}, "NAME, or --all, is required"},
      {{"daily", "a", "--all"}, "NAME excludes --all"},
      {{"daily", "a", "--month", "jan"}, "jan not in"},
      {{"daily", "a", "b"}, "'b' is not expected"},
      {{"--json", "daily", "--all", "--csv"}, "--csv"},
      {{"status", "--csv", "--json"}, "--csv"},
      {{"config", "import", "Acme"}, "ACCOUNT is required"},
      {{"watch", "--for", "soon"}, "soon is no number of seconds"},
      {{"watch", "--for", "-1"}, "-1 is no number of seconds"},
      {{"watch", "--for", "nan"}, "nan is no number of seconds"},
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
}

TEST_F(Console, KeepsLinksThatAreAddedOneAfterTheOtherAndRemovesOneByName) {
  c.MonitorLinks({"a", "b", "c"});
  EXPECT_EQ(c.Json({"links", "list"})[2], nlohmann::json::parse(R"({"number": "03", "size_kb": "",
            "name": "c", "reference": "c.zip", "path": "http://files/c.zip"})"));
  c.Refresh("<P>1 a.zip\n<P>2 b.zip\n<P>3 c.zip\n");
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
  EXPECT_EQ(c.Json({"links", "list"}), links);

  // With the switch off the first link of a session overwrites the last record, as in the window.
  ASSERT_EQ(c.Run({"settings", "set", "AppendAfterLast", "0"}), 0);
  ASSERT_EQ(c.AddLink("d.zip", "d"), 0);
  EXPECT_EQ(c.Json({"links", "list"}).size(), 2U);
}

TEST_F(Console, BooksEachHitOnceWithARefreshEveryHour) {
  c.MonitorLinks({"a"});
  for (const char* const counter : {"3", "10", "10", "12"}) {
    c.Refresh("<P>" + std::string(counter) + " a.zip\n");
    c.clock.Advance(3600);
  }
  EXPECT_EQ(c.File("Data/2026/a-Jun"), "15123\r\n15137\r\n15152\r\n");
  ASSERT_EQ(c.Run({"settings", "set", "CountOnce", "0"}), 0);
  c.Refresh("<P>13 a.zip\n");
  EXPECT_EQ(c.File("Data/2026/a-Jun"), "15123\r\n15137\r\n15152\r\n15162\r\n");
}

TEST_F(Console, SaysWhyARefreshDidNotComeToItsEnd) {
  EXPECT_EQ(c.Run({"refresh"}), 1);
  EXPECT_THAT(c.err, HasSubstr("no account is set"));
  c.SaveAccount();
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

TEST_F(Console, ShowsTheTenDetailsAfterAskingTheService) {
  c.MonitorLinks({"a"});
  const auto details = c.Json({"info"});
  ASSERT_EQ(details.size(), 10U);
  EXPECT_EQ(details[3], nlohmann::json::parse(R"({"row": 4,
            "item": "Bytes transfered - this session", "value": "83 Bytes"})"));
  EXPECT_EQ(details[5]["value"], "1");
}

TEST_F(Console, WritesNothingWhenItOnlyReads) {
  c.MonitorLinks({"a"});
  c.Refresh("<P>4 a.zip\n");
  const ProcessLock window(c.folder.Path());
  const auto before = c.Listing();
  const std::size_t requests = c.server.Requests().size();
  const Words reading[] = {{"status"},           {"status", "--csv"},
                           {"account", "show"},  {"links", "list"},
                           {"daily", "a"},       {"daily", "--all", "--csv"},
                           {"stats", "export"},  {"counting-link", "a"},
                           {"settings", "list"}, {"settings", "get", "User"}};
  for (const Words& words : reading) {
    EXPECT_EQ(c.Run(words), 0);
    EXPECT_NE(c.out, "");
  }
  for (const Words& words : {Words{"refresh"}, Words{"settings", "set", "DefURL", "x"}}) {
    EXPECT_EQ(c.Run(words), 1);
    EXPECT_THAT(c.err, HasSubstr("Tallyo is running"));
  }
  EXPECT_EQ(c.Listing(), before);
  EXPECT_EQ(c.server.Requests().size(), requests);
}

TEST_F(Console, StoresNumbersAndShowsForeignBytesWithoutLettingThemActOnTheTerminal) {
  ASSERT_EQ(c.Run({"settings", "set", "n", "4294967295", "--type", "dword", "--key", "A\\B"}), 0);
  EXPECT_EQ(c.Json({"settings", "list", "--key", "a"}),
            nlohmann::json::parse(R"([{"key": "A\\B", "name": "n", "type": "dword",
            "text": "-1"}])"));
  ASSERT_EQ(c.Run({"settings", "set", "n", "a\x1b[31m\x9d\n\xe9 \xc2\x9b"}), 0);
  EXPECT_EQ(c.Run({"settings", "get", "n"}), 0);
  EXPECT_EQ(c.out, "a\uFFFD[31m\uFFFD\uFFFD\u00E9 \u00C2\u203A\n");
  EXPECT_EQ(c.Json({"settings", "get", "n"}), "a\x1b[31m\xc2\x9d\n\xc3\xa9 \xc3\x82\xe2\x80\xba");
}

TEST_F(Console, GoesOnWithAStoreThatCannotBeOpened) {
  std::filesystem::create_directories(c.folder.Path() / "settings.db");
  std::filesystem::create_directories(c.folder.Path() / "Data");
  std::ofstream(c.folder.Path() / "Data" / "LastRead.dat") << "a=4,\r\n";
  EXPECT_EQ(c.Run({"refresh"}), 1);
  EXPECT_THAT(c.err, HasSubstr("settings store"));
  EXPECT_EQ(std::count(c.err.begin(), c.err.end(), '\n'), 2);  // that, and why no refresh
  EXPECT_EQ(c.Run({"account", "save", "Acme", "mysite"}), 1);
  EXPECT_THAT(c.err, HasSubstr("could not be stored"));
  EXPECT_EQ(c.Run({"status"}), 0);
  EXPECT_EQ(c.File("Data/LastRead.dat"), "a=4,\r\n");  // for when the store is back
}

TEST_F(Console, EndsWithEverythingSavedWhenASignalComesDuringAFetch) {
  c.MonitorLinks({"a"});
  c.Refresh("<P>4 a.zip\n");
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

TEST_F(Console, FailsWhereItsResultCannotBeWrittenUnlessTheReaderIsGone) {
  int ends[2] = {};
  ASSERT_EQ(pipe(ends), 0);
  const FileDescriptor writing(ends[1]);
  close(ends[0]);
  for (const char* const word : {"status", "--help"}) {
    for (const int descriptor : {-1, writing.Number()}) {
      std::ostringstream out;
      std::ostringstream err;
      out.setstate(std::ios::badbit);
      const int status = RunCommandLine({word}, {.clock = c.clock,
                                                 .out = out,
                                                 .err = err,
                                                 .defaultAppDir = c.folder.Path().string(),
                                                 .defaultServiceUrl = c.server.Url(),
                                                 .outDescriptor = descriptor});
      EXPECT_EQ(status, descriptor < 0 ? 1 : 0) << word;
      EXPECT_EQ(err.str(), descriptor < 0 ? "tallyo-cli: the result could not be written\n" : "");
    }
  }
}

}  // namespace
}  // namespace tallyo::test
