#include "stats/snapshot.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/monitored_program.h"
#include "tests/support/table.h"

namespace tallyo {
namespace {

using test::kNoFile;
using test::Table;

constexpr const char* kFile = "Data/LastRead.dat";

TEST(Snapshot, IsSavedRowByRowAsShownAndLeavesNothingToRecover) {
  test::MonitoredProgram t;
  t.StartWith({{"Manual", "152"}, {"Setup file", "0042"}, {"b", ""}});
  ASSERT_EQ(t.Refresh("<P>7 b.zip\n"), RefreshOutcome::Completed);
  EXPECT_EQ(t.TextOrNoFile("Data/LastRead.now"), "Manual=152,Setup file=0042,b=7,\r\n");
  t.P().Quit();
  EXPECT_EQ(t.LastRead(), "Manual=152,Setup file=0042,b=7,\r\n");
  EXPECT_EQ(t.TextOrNoFile("Data/LastRead.now"), kNoFile);
}

TEST(Snapshot, IsLoadedByPositionUpToItsFirstError) {
  // Each row as name, counter and path.
  const char* const untouched = "a||http://h/a b||http://h/b ";
  const Table<const char*, const char*> rows = {
      {"", untouched},
      {"b=5,a=10,\r\nb=1,", "b|5|http://h/b a|10|http://h/a "},
      {"a=10,b=5\r\n", "a|10|http://h/a b||http://h/b "},
      {"a=40000,b=5,\r\n", untouched},
      {"a=32767.4,b=32767.5,\r\n", "a|32767|http://h/a b||http://h/b "},
      {"a=2.5,b=3.5,\r\n", "a|2|http://h/a b|4|http://h/b "},
      {"a=15abc,b=,\r\n", "a|15|http://h/a b|0|http://h/b "},
      {"a=1=2,b=-7,\r\n", "a|1|http://h/a b|-7|http://h/b "},
      {"a=10,b,\r\n", "a|10|http://h/a b||http://h/b "},
      {"A=3,\r\n", "A|3|http://h/b b||http://h/b "}};
  test::MonitoredProgram t;
  t.GiveLinks({"a", "b"});
  for (const auto& [file, shown] : rows) {
    SCOPED_TRACE(file);
    t.PutFile(kFile, file);
    t.Start();
    EXPECT_EQ(t.Rows({1, 3}), shown);
    EXPECT_EQ(t.LastRead(), file);
  }
}

TEST(Snapshot, IsSettledOnceAgainstTheCountersAndThenDeleted) {
  using Text = const char*;
  const Table<Text, Text, Text, Text, Text, bool> rows = {
      {"a=10,b=5,\r\n", "14", "5", "15124\r\n", kNoFile, false},
      {"b=5,a=20,", "18", "9", kNoFile, "15124\r\n", false},
      {"a=10,b=5", "14", "9", "15124\r\n", kNoFile, true},
      {"a=10,b,\r\n", "14", "9", "15124\r\n", kNoFile, true},
      {"a=10,b=5,\r\n", "15abc", "9", kNoFile, kNoFile, true},
      {"a=10,\r\n", " 14 ", "", "15124\r\n", kNoFile, false},
      {"a=10,b=5,\r\n", "32778", "9", kNoFile, kNoFile, true},
      {"a=10,\r\n", "32777", "", "151232767\r\n", kNoFile, false},
      {"x=1,A=2,\r\n", "14", "9", kNoFile, kNoFile, false},
      {"a=1,a=2,\r\n", "3", "", "15123\r\n", kNoFile, false},
      {"", "14", "9", kNoFile, kNoFile, true}};
  for (const auto& [file, a, b, dailyA, dailyB, kept] : rows) {
    SCOPED_TRACE(file + std::string(" ") + a + " " + b);
    test::MonitoredProgram t;
    t.StartWith({{"a", a}, {"b", b}});
    t.PutFile(kFile, file);
    t.P().snapshot.ApplySnapshot();
    EXPECT_EQ(t.Daily("a"), dailyA);
    EXPECT_EQ(t.Daily("b"), dailyB);
    EXPECT_EQ(t.LastRead(), kept ? file : kNoFile);
  }
}

TEST(Snapshot, IsSettledAgainstTheFirstRowOfANameThatHasNotFallen) {
  test::MonitoredProgram t;
  t.StartWith({{"a", "5"}, {"b", "14"}});
  t.Form().ListView1.SetRowText(2, "a");
  for (const char* first : {"5", "10"}) {  // fallen, standing still
    t.Form().ListView1.SetValue(1, 1, first);
    t.PutFile(kFile, "a=10,\r\n");
    t.P().snapshot.ApplySnapshot();
    EXPECT_EQ(t.Daily("a"), "15124\r\n");
    EXPECT_EQ(t.LastRead(), kNoFile);
  }
}

TEST(Snapshot, CountsTheHitsOfTheNightTwiceOrOnce) {
  const Table<const char*, bool, bool, const char*> rows = {{"", false, true, "15128\r\n"},
                                                            {"", true, true, "15124\r\n"},
                                                            {"1", false, true, "15124\r\n"},
                                                            {"0", true, false, "15124\r\n"}};
  for (const auto& [setting, byDefault, intervalPassed, daily] : rows) {
    SCOPED_TRACE(setting + std::to_string(byDefault) + std::to_string(intervalPassed));
    test::MonitoredProgram t;
    t.countOnce = byDefault;
    t.Set(names::kCountOnce, setting);
    t.StartWith({{"a", "10"}, {"b", "7"}});
    t.P().state.LastCheckTime = intervalPassed ? 43200 - 7200 : 43200 - 600;
    t.Restart();
    EXPECT_EQ(t.Refresh("<P>14 a.zip\n<P>7 b.zip\n"), RefreshOutcome::Completed);
    EXPECT_EQ(t.Daily("a"), daily);
    EXPECT_EQ(t.Daily("b"), kNoFile);
    EXPECT_EQ(t.LastRead(), kNoFile);
    t.clock.Advance(3600);
    EXPECT_EQ(t.Refresh("<P>15 a.zip\n<P>7 b.zip\n"), RefreshOutcome::Completed);
    EXPECT_EQ(t.Daily("a"), daily + std::string("15131\r\n"));
  }
}

TEST(Snapshot, PassesOverWhatARefreshHadBookedBeforeItStopped) {
  test::MonitoredProgram t;
  t.countOnce = true;
  t.StartWith({{"a", "10"}, {"b", "7"}});
  t.P().state.LastCheckTime = 43200 - 7200;
  t.Restart();
  EXPECT_EQ(t.Refresh("<P>14 a.zip\n<P>9 b.zip"), RefreshOutcome::Stopped);
  EXPECT_EQ(t.Refresh("<P>14 a.zip\n<P>9 b.zip\n"), RefreshOutcome::Completed);
  EXPECT_EQ(t.Daily("a"), "15124\r\n");
  EXPECT_EQ(t.Daily("b"), "15122\r\n");
}

TEST(Snapshot, OfARefreshThatWasKilledAtItsWritingIsFinishedOnce) {
  const char* const kept =
      "gone=5,a=14,b=9,\r\n15126 2026/a-Jan\r\n15112 2025/b-Dec\r\n15123 ../out\r\n";
  for (const auto& [dailyA, snapshot] : test::Table<const char*, const char*>{
           {kNoFile, "a=8,b=7,\r\n"}, {"15122\r\n", kNoFile}, {"15126\r\n", "\r\n"}}) {
    test::MonitoredProgram t;
    t.GiveLinks({"a", "b"});
    t.PutFile("Data/2025/b-Dec", "311203\r\n");
    t.PutFile("Data/LastRead.now", kept);
    t.PutFile("Data/2026/a-Jan", dailyA);
    t.PutFile(kFile, snapshot);
    t.Start();
    EXPECT_EQ(t.Rows({1}), "a|14 b|9 ");
    EXPECT_EQ(t.Daily("a"), "15126\r\n");
    EXPECT_EQ(t.FileText("Data/2025/b-Dec"), "311203\r\n15112\r\n");
    EXPECT_FALSE(t.HasFile("out")) << "no file outside of the years";
    EXPECT_EQ(t.LastRead(), "a=14,b=9,\r\n");
    EXPECT_EQ(t.TextOrNoFile("Data/LastRead.now"), kNoFile);
  }
}

}  // namespace
}  // namespace tallyo
