#include "stats/statistics_refresh.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/support/monitored_program.h"
#include "tests/support/table.h"

namespace tallyo {
namespace {

using test::kAccountRecord;
using test::kCountersPath;
using test::kNoFile;
using test::Table;
using testing::ElementsAre;

constexpr float kNoon = 43200;
constexpr const char* kBefore = "a|10| b|7| ";
constexpr std::string_view kAccountQuery = "accounts/mysite.txt";
constexpr std::string_view kCountersQuery = "devstats.cgi?account=mysite.txt&action=show";
constexpr std::size_t kAccountBytes = kAccountQuery.size() + kAccountRecord.size();

// Links a and b with the counters 10 and 7, at noon of 2026-01-15.
class StatisticsRefreshTest : public testing::Test {
 protected:
  StatisticsRefreshTest() { t_.StartWith({{"a", "10"}, {"b", "7"}}); }
  std::string Status() { return t_.Form().Label8.Caption(); }

  test::MonitoredProgram t_;
};

TEST(StatisticsRefresh, BringsRowsAndDailyFilesUpToDate) {
  using Text = const char*;
  const Table<Text, Text, Text, Text, bool> rows = {
      {"<P>8 b.zip\n<P>15 a.zip\n", "a|15|5 b|8|1 ", "15125\r\n", "15121\r\n", true},
      {"<P>8 a.zip\n", "a|8|-2 b|7| ", kNoFile, kNoFile, true},
      {"<P>15 A.ZIP\n<P>15 a\n<P>15 a.zip\r\n", kBefore, kNoFile, kNoFile, true},
      {"<P>0042 a.zip\n", "a|0042|32 b|7| ", "151232\r\n", kNoFile, true},
      {"<P>x a.zip\n", "a|x|-10 b|7| ", kNoFile, kNoFile, true},
      {"<P>12.5 a.zip\n<P>10.5 b.zip\n", "a|12.5|2.5 b|10.5|3.5 ", "15122\r\n", "15124\r\n", true},
      {"<P>11 a.zip\n<P>13 a.zip\n", "a|13|2 b|7| ", "15123\r\n", kNoFile, true},
      {"<P>15 a.zip\n<P> b.zip\n", "a|15|5 b|7| ", "15125\r\n", kNoFile, true},
      {"<html><P>15 a.zip\n\n<br><P>9 b.zip\n", "a|15|5 b|9|2 ", "15125\r\n", "15122\r\n", true},
      {"<P>9 no such\n<P>15  a.zip\n<P>x<P>5 c\n", kBefore, kNoFile, kNoFile, true},
      {"<p>15 a.zip\n", kBefore, kNoFile, kNoFile, false},
      {"<P>15 a.zip\nbye and thanks\n", "a|15|5 b|7| ", "15125\r\n", kNoFile, false},
      {"<P>32778 a.zip\n<P>9 b.zip\n", "a|32778|32768 b|7| ", kNoFile, kNoFile, false}};
  for (const auto& [reply, shown, dailyA, dailyB, completed] : rows) {
    SCOPED_TRACE(reply);
    test::MonitoredProgram t;
    t.StartWith({{"a", "10"}, {"b", "7"}});
    EXPECT_EQ(t.Refresh(reply), completed ? RefreshOutcome::Completed : RefreshOutcome::Stopped);
    EXPECT_EQ(t.Rows(), shown);
    EXPECT_EQ(t.Daily("a"), dailyA);
    EXPECT_EQ(t.Daily("b"), dailyB);
    EXPECT_EQ(t.Form().Label8.Caption(),
              completed ? "Data acquired at 12:00:00" : "Request Time out");
    EXPECT_EQ(t.P().state.LastCheckTime, completed ? kNoon : 0);
    EXPECT_EQ(t.Detail(detail::kAccountStatus), "Unknown");
    EXPECT_EQ(t.Detail(detail::kOtherStatus), "Not connected");
    EXPECT_EQ(
        t.Setting(names::kBytesTransTotal),
        std::to_string(kAccountBytes + kCountersQuery.size() + std::string_view(reply).size()));
  }
}

TEST_F(StatisticsRefreshTest, MeasuresANewRowAgainstTheOldCounterOfTheRecordBefore) {
  t_.Form().ListView1.RemoveRow(2);
  t_.Refresh("<P>15 a.zip\n<P>0012 b.zip\n");
  EXPECT_EQ(t_.Rows(), "a|15|5 b|12| ");
  EXPECT_EQ(t_.Form().ListView1.Value(2, 3), "http://h/b");
  EXPECT_EQ(t_.Daily("b"), "15122\r\n");
  t_.Form().ListView1.RemoveRow(2);
  t_.clock.Advance(3600);
  t_.Refresh("<P>3 b.zip\n<P>16 a.zip\n");
  EXPECT_EQ(t_.Daily("b"), "15122\r\n15133\r\n") << "the first record is measured against nothing";
}

TEST_F(StatisticsRefreshTest, BooksGrowthAfterTheIntervalAndMovesTheTimeAfterAMinute) {
  const Table<float, const char*, bool, bool> rows = {
      {kNoon - 1800, "0.5", true, true},  {kNoon - 1799, "0.5", false, true},
      {kNoon - 60, "0.5", false, true},   {kNoon - 59, "0.5", false, false},
      {kNoon + 10, "0", false, false},    {kNoon - 30, "", true, false},
      {kNoon - 3599, " 1h", false, true}, {kNoon - 3600, " 1h", true, true}};
  int counter = 10;
  for (const auto& [lastCheckTime, hours, booked, moved] : rows) {
    SCOPED_TRACE(std::to_string(lastCheckTime) + " " + hours);
    t_.P().state.LastCheckTime = lastCheckTime;
    t_.Form().Text2.SetText(hours);
    t_.PutFile("Data/2026/a-Jan", kNoFile);
    const std::string next = std::to_string(++counter);
    EXPECT_EQ(t_.Refresh("<P>" + next + " a.zip\n"), RefreshOutcome::Completed);
    EXPECT_EQ(t_.Rows(), "a|" + next + "|1 b|7| ");
    EXPECT_EQ(t_.Daily("a"), booked ? "15121\r\n" : kNoFile);
    EXPECT_EQ(t_.P().state.LastCheckTime, moved ? kNoon : lastCheckTime);
  }
}

TEST(StatisticsRefresh, AsksNothingOfTheServiceUntilEveryGateIsPassed) {
  using Program = test::MonitoredProgram;
  const Table<std::function<void(Program&)>, RefreshOutcome, unsigned> rows = {
      {[](Program& t) { t.Form().Combo1.Clear(); }, RefreshOutcome::NoLinks, 0},
      {[](Program& t) { t.GiveAccount(2); }, RefreshOutcome::NoSlotsLeft, 1},
      {[](Program& t) { t.Form().Text1[1].SetText(""); }, RefreshOutcome::NoSlotsLeft, 0},
      {[](Program& t) { t.Form().Text1[1].SetText("my\nsite"); }, RefreshOutcome::AccountRefused,
       0},
      {[](Program& t) { t.GiveAccount(1); }, RefreshOutcome::Completed, 2}};
  for (const auto& [arrange, outcome, requests] : rows) {
    Program t;
    t.StartWith({{"a", "10"}, {"b", "7"}});
    arrange(t);
    EXPECT_EQ(t.Refresh("<P>15 a.zip\n"), outcome);
    EXPECT_EQ(t.server.Requests().size(), requests);
    const bool completed = outcome == RefreshOutcome::Completed;
    EXPECT_EQ(t.Rows(), completed ? "a|15|5 b|7| " : kBefore);
    EXPECT_EQ(t.P().state.LastCheckTime, completed ? kNoon : 0);
  }
}

TEST_F(StatisticsRefreshTest, StopsAtATooLongRecordAndCountsIntoTheFirstRowOfAName) {
  t_.Form().ListView1.SetRowText(2, "a");
  t_.SetRecord("02", "1,b,b.zip,http://h/b,more");
  EXPECT_EQ(t_.Refresh("<P>15 a.zip\n<P>9 b.zip\n"), RefreshOutcome::Stopped);
  EXPECT_EQ(t_.Rows(), "a|15|5 a|7| ");
  EXPECT_EQ(t_.P().state.LastCheckTime, 0);
}

TEST_F(StatisticsRefreshTest, LetsNothingElseBeginWhileItWaits) {
  t_.server.Hold(kCountersPath);
  std::vector<RefreshOutcome> finished;
  t_.P().refresh.OnFinished = [&](RefreshOutcome outcome) { finished.push_back(outcome); };
  t_.DuringRequest(2, [&] {
    t_.Form().Label8.SetCaption("waiting");
    EXPECT_EQ(t_.P().refresh.RefreshStatistics(), RefreshOutcome::Busy);
    EXPECT_FALSE(t_.P().verification.VerifyAccount());
    t_.Form().Timer1.Tick();
    EXPECT_EQ(Status(), "waiting");
    EXPECT_EQ(t_.Detail(detail::kNextCheck), "") << "the tick is dropped whole";
  });
  EXPECT_EQ(t_.Refresh("<P>15 a.zip\n"), RefreshOutcome::Completed);
  EXPECT_EQ(t_.server.Requests().size(), 2U);
  EXPECT_THAT(finished, ElementsAre(RefreshOutcome::Completed));
  EXPECT_EQ(t_.Refresh("<P>16 a.zip\n"), RefreshOutcome::Completed);
}

TEST_F(StatisticsRefreshTest, UnwindsWhenTheProgramIsQuitWhileItWaits) {
  t_.server.Hold(kCountersPath);
  t_.P().refresh.OnFinished = [](RefreshOutcome) { ADD_FAILURE() << "nothing resumes"; };
  t_.DuringRequest(2, [&] { t_.P().Quit(); });
  EXPECT_EQ(t_.Refresh("<P>15 a.zip\n"), std::nullopt);
  EXPECT_TRUE(t_.P().Ended());
  EXPECT_EQ(Status(), "Request Time out");
  EXPECT_EQ(t_.LastRead(), "a=10,b=7,\r\n");
  EXPECT_EQ(t_.Daily("a"), kNoFile);
  t_.Tick();
  EXPECT_EQ(t_.server.Requests().size(), 2U);
}

}  // namespace
}  // namespace tallyo
