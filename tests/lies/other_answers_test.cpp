#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/lies/answers.h"
#include "tests/support/monitored_program.h"
#include "tests/support/table.h"

namespace tallyo::test {
namespace {

using namespace std::string_literals;
using testing::IsEmpty;

constexpr const char* kRegistration = "/cgi-bin/Tallyo/devstats.cgi?account=mysitef.txt";

TEST(LyingAboutAccounts, RefusesWhatIsNoGoodRecordAndTakesTheNextOne) {
  const std::string record(kAccountRecord);
  const Table<const char*, std::string, Then> lies = {
      {"reset inside the record", ok + "Content-Length: 99\r\n\r\n" + record, Then::Reset},
      {"a bad chunk", chunked + "x\r\n" + record, Then::Close},
      {"empty", Whole(""), Then::KeepAlive},
      {"not found, with a page", Whole("<h1>404</h1>", "HTTP/1.1 404 No\r\n"), Then::KeepAlive},
      {"a redirect without a body", "HTTP/1.1 302 Go\r\nLocation: /x\r\nContent-Length: 0\r\n\r\n",
       Then::KeepAlive},
      {"16 MiB of no record", Whole(std::string(16U << 20U, 'x')), Then::KeepAlive},
      {"a million pairs and no end", Whole(Many(1000000, "a=b,") + "c"), Then::KeepAlive},
      {"a quota of 100,000 digits", Whole("max=" + std::string(100000, '9') + "\n"),
       Then::KeepAlive},
      {"a NUL in the account", Whole("acc=my\0site\n"s), Then::KeepAlive}};
  for (const auto& [name, bytes, then] : lies) {
    SCOPED_TRACE(name);
    MonitoredProgram t;
    t.StartWith({{"A", "10"}});
    t.GiveCounters("<P>15 A.zip\n");
    t.server.AnswerRaw(kAccountPath, bytes, then);
    EXPECT_EQ(t.Refresh(), RefreshOutcome::AccountRefused);
    EXPECT_EQ(t.Rows(), "A|10| ");
    EXPECT_EQ(t.Daily("A"), kNoFile);
    EXPECT_EQ(t.Setting(names::kUser) + t.Setting(names::kAccount), "Acmemysite");
    EXPECT_EQ(t.server.Requests().size(), 1U);
    t.GiveAccount();
    EXPECT_EQ(t.Refresh(), RefreshOutcome::Completed);
    EXPECT_EQ(t.Rows(), "A|15|5 ");
  }
}

TEST(LyingAboutRegistrations, StoresALinkOnlyWhereTheWholeAnswerSaysSo) {
  const Table<const char*, std::string, Then, bool> lies = {
      {"cut behind the mark", ok + "Content-Length: 9\r\n\r\n<P>ok\n", Then::Close, false},
      {"no last chunk", chunked + "6\r\n<P>ok\n\r\n", Then::Close, false},
      {"HTTP/0.9", "<P>ok\n", Then::Close, false},
      {"a NUL inside the mark", Whole("<P>\0ok\n"s), Then::KeepAlive, false},
      {"nothing", "HTTP/1.1 204 None\r\n\r\n", Then::KeepAlive, false},
      {"16 MiB and a byte", ok + "\r\n<P>ok" + std::string(16U << 20U, 'x'), Then::Close, false},
      {"a redirect", Whole("<P>ok\n", "HTTP/1.1 302 Go\r\nLocation: /x\r\n"), Then::KeepAlive,
       true},
      {"the status 500", Whole("<P>ok\n", "HTTP/1.1 500 No\r\n"), Then::KeepAlive, true},
      {"control bytes around the mark", Whole("\x1b[2J<P>ok\x07\xff"), Then::KeepAlive, true}};
  for (const auto& [name, bytes, then, stored] : lies) {
    for (const bool adds : {true, false}) {
      SCOPED_TRACE(std::string(name) + (adds ? ", ADD" : ", REMOVE"));
      MonitoredProgram t;
      t.appendAfterLast = true;
      t.StartWith({{"A", "10"}});
      t.server.AnswerRaw(kRegistration, bytes, then);
      const auto submit = [&] {
        t.P().Dispatch([&] {
          if (adds) {
            t.Form().Text1[field::kLinkPath].SetText("http://h/B");
            t.Form().Text1[field::kReference].SetText("B.zip");
            t.Form().Text1[field::kFriendlyName].SetText("B");
          } else {
            t.Form().Combo1.Choose(0);
          }
          t.Form().Label2[adds ? action::kAdd : action::kRemove].Click();
          t.Form().Command1[1].Click();
        });
        return t.Record("01") + " " + t.Record("02");
      };
      const std::string before = "1,A,A.zip,http://h/A ";
      const std::string done = adds ? before + ",B,B.zip,http://h/B" : " ";
      EXPECT_EQ(submit(), stored ? done : before);
      EXPECT_EQ(t.Boxes().Shown().size(), 1U);
      if (!stored) {
        t.server.Answer(kRegistration, "<P>ok\n");
        EXPECT_EQ(submit(), done);
      }
    }
  }
}

// Pages stand on another server than the service, so that redirects are followed.
TEST(LyingAboutPages, ListsNothingThatDidNotComeWhole) {
  const std::string link = R"(<A HREF="http://x/a.zip">)";
  const auto redirect = [](const std::string& to) {
    return "HTTP/1.1 302 Go\r\nLocation: " + to + "\r\nContent-Length: 0\r\n\r\n";
  };
  const Table<const char*, std::string, Then, int> lies = {
      {"a redirect to itself", redirect("/page/0"), Then::KeepAlive, 0},
      {"a redirect to a file", redirect("file:///etc/passwd"), Then::KeepAlive, 0},
      {"a redirect to FTP", redirect("ftp://127.0.0.1/x"), Then::KeepAlive, 0},
      {"six redirects", redirect("/chain/6"), Then::KeepAlive, 0},
      {"five redirects", redirect("/chain/4"), Then::KeepAlive, 1},
      {"cut short", ok + "Content-Length: 999\r\n\r\n" + link, Then::Close, 0},
      {"an anchor without an end", Whole(link + "<A HREF=\"b"), Then::KeepAlive, 1},
      {"a NUL in an anchor", Whole("<A HREF=\"http://x/\0\">"s), Then::KeepAlive, 1},
      {"a hundred thousand anchors", Whole(Many(100000, link)), Then::KeepAlive, 100000}};
  for (const auto& [name, bytes, then, lines] : lies) {
    SCOPED_TRACE(name);
    MonitoredProgram t;
    ScriptedServer pages;
    pages.AnswerRaw("/page/0", bytes, then);
    for (int hop = 6; hop > 0; --hop) {
      pages.AnswerRaw("/chain/" + std::to_string(hop),
                      redirect("/chain/" + std::to_string(hop - 1)), Then::KeepAlive);
    }
    pages.Answer("/chain/0", link);
    pages.Answer("/good", link + link);
    t.StartWith({{"A", "10"}});
    const auto import = [&](const std::string& page) {
      t.Form().Text1[field::kLinkPath].SetText(page);
      t.P().Dispatch([&] { t.P().pageImport.ImportLinksFromPage(); });
      return static_cast<int>(t.Form().List1.Lines().size());
    };
    EXPECT_EQ(import(pages.Url("/page/0")), lines);
    EXPECT_LE(pages.Requests().size(), 6U);
    EXPECT_THAT(t.server.Requests(), IsEmpty());
    EXPECT_THAT(t.Boxes().Texts(), IsEmpty());
    EXPECT_EQ(import(pages.Url("/good")), 2);
  }
}

}  // namespace
}  // namespace tallyo::test
