#include "stats/refresh_scheduler.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/support/monitored_program.h"
#include "tests/support/table.h"

namespace tallyo {
namespace {

using test::kCountersPath;
using test::Table;

constexpr float kNoon = 43200;
constexpr const char* kHalf = "HTTP/1.1 200 OK\r\nContent-Length: 90\r\n\r\nhalf";

// A link a with the counter 10, at noon of 2026-01-15, a Thursday.
class RefreshSchedulerTest : public testing::Test {
 protected:
  RefreshSchedulerTest() {
    t_.GiveCounters("<P>15 a.zip\n");
    t_.StartWith({{"a", "10"}});
  }

  // How many requests a tick makes.
  std::size_t RequestsOfATick() {
    const std::size_t before = t_.server.Requests().size();
    t_.Tick();
    return t_.server.Requests().size() - before;
  }
  // The rows of the last and the next check and the status, in one text.
  std::string Ages() {
    return t_.Detail(detail::kLastCheck) + "; " + t_.Detail(detail::kNextCheck) + "; " +
           t_.Form().Label8.Caption();
  }
  std::string Title() { return t_.Form().Frame.Caption(); }
  float& LastCheckTime() { return t_.P().state.LastCheckTime; }

  test::MonitoredProgram t_;
};

TEST_F(RefreshSchedulerTest, RefreshesAtOnceAndThenAfterEachInterval) {
  EXPECT_EQ(RequestsOfATick(), 3U) << "the empty slots row asks for the account first";
  EXPECT_EQ(t_.Rows(), "a|15|5 ");
  EXPECT_EQ(LastCheckTime(), kNoon);
  const Table<double, std::size_t, const char*> rows = {
      {0.5, 0, "~ 0 minutes ago; ~ 29 minutes; Data last acquired 0 minutes ago"},
      {59.5, 0, "~ 1 minutes ago; ~ 29 minutes; Data last acquired 1 minutes ago"},
      {1739.5, 0, "~ 29 minutes ago; ~ 0 minutes; Data last acquired 29 minutes ago"},
      {0.5, 2, "~ 0 minutes ago; ~ 30 minutes; Data last acquired 0 minutes ago"}};
  for (const auto& [advance, requests, ages] : rows) {
    t_.clock.Advance(advance);
    EXPECT_EQ(RequestsOfATick(), requests);
    EXPECT_EQ(Ages(), ages);
  }
  EXPECT_EQ(LastCheckTime(), kNoon + 1800);
  EXPECT_EQ(Title(), "Tallyo");
}

TEST_F(RefreshSchedulerTest, TriesAgainAtEachTickUntilSomethingWasAcquired) {
  t_.server.AnswerRaw(kCountersPath, kHalf, test::Then::Close);
  EXPECT_EQ(RequestsOfATick(), 3U);
  EXPECT_EQ(Ages(), "Unknown; on connect; Request Time out");
  t_.GiveCounters("<P>15 a.zip\n");
  EXPECT_EQ(RequestsOfATick(), 2U);
  t_.clock.Advance(0.001);
  EXPECT_EQ(RequestsOfATick(), 2U) << "the same moment in single precision";
  t_.clock.Advance(0.5);
  EXPECT_EQ(RequestsOfATick(), 0U);
  t_.server.AnswerRaw(kCountersPath, kHalf, test::Then::Close);
  t_.clock.Advance(1920.5);
  EXPECT_EQ(RequestsOfATick(), 2U);
  EXPECT_EQ(Ages(), "~ 32 minutes ago; ~ -3 minutes; Data last acquired 32 minutes ago");
  EXPECT_EQ(LastCheckTime(), kNoon);
}

TEST(RefreshScheduler, RestoresTheLastTimeOfTodayOnly) {
  const Table<const char*, float, bool> rows = {
      {"01-15-2026 43199.998", 43199.998F, false},
      {"01-15-2026 43199.999", kNoon, true},  // rounds to this very moment
      {"01-15-2026 late", 0, true},
      {"01-14-2026 43000.5", 0, true},
      {" 01-15-2026 43000.5", 0, true},
      {"01-15-2026", 0, true},
      {"", 0, true}};
  for (const auto& [prevCheck, restored, refreshes] : rows) {
    SCOPED_TRACE(prevCheck);
    test::MonitoredProgram t;
    t.Set(names::kPrevCheck, prevCheck);
    t.GiveCounters("");
    t.StartWith({{"a", "10"}});
    EXPECT_EQ(t.P().state.LastCheckTime, restored);
    t.Tick();
    EXPECT_EQ(t.server.Requests().size(), refreshes ? 3U : 1U);
  }
}

TEST_F(RefreshSchedulerTest, BeginsANewDayWithARefreshAndBooksItsGrowth) {
  t_.Tick();
  t_.clock.Set(2026, 1, 16, 0, 0, 0, 0.25);
  t_.GiveCounters("<P>18 a.zip\n");
  EXPECT_EQ(RequestsOfATick(), 2U);
  EXPECT_EQ(t_.Daily("a"), "15125\r\n16003\r\n");
  EXPECT_EQ(LastCheckTime(), 0) << "a time within the first minute is not kept";
  EXPECT_EQ(Ages(), "Unknown; on connect; Data acquired at 00:00:00");
  t_.clock.Set(2026, 1, 16, 0, 1, 0);
  EXPECT_EQ(RequestsOfATick(), 2U);
  EXPECT_EQ(LastCheckTime(), 60);
}

TEST_F(RefreshSchedulerTest, ShowsAClockInTheTitleOfTheDailyStatusAndNothingWithoutLinks) {
  t_.P().screens.ShowScreen(screen::kDailyStatus);
  t_.server.AnswerOnce(test::kAccountPath, "ban=yes\n");
  EXPECT_EQ(RequestsOfATick(), 1U);
  EXPECT_EQ(Title(), "Tallyo");
  t_.clock.Set(2026, 1, 15, 12, 3, 4);
  EXPECT_EQ(RequestsOfATick(), 3U) << "asked again as long as the slots row is empty";
  EXPECT_EQ(Title(), "Tallyo - Thu, Jan 15 2026 12:03:04");
  t_.P().screens.ShowScreen(screen::kCurrentStatus);
  t_.Form().Combo1.Clear();
  EXPECT_EQ(RequestsOfATick(), 0U);
  EXPECT_EQ(Title(), "Tallyo - Thu, Jan 15 2026 12:03:04") << "untouched";
}

TEST_F(RefreshSchedulerTest, DropsTicksInsideTicksFetchesAndBoxes) {
  t_.server.Answer("/page", "page");
  t_.server.Hold("/page");
  t_.DuringRequest(1, [&] { EXPECT_EQ(RequestsOfATick(), 0U); });
  EXPECT_EQ(t_.P().requests.FetchDocument(t_.server.Url("/page")), "page");
  t_.Boxes().WhileOpen = [&] { EXPECT_EQ(RequestsOfATick(), 0U); };
  t_.Boxes().Show({.text = "", .title = ""});
  EXPECT_EQ(Ages(), "; ; Request Time out");
  t_.Event = [&] { t_.Form().Timer1.Tick(); };
  EXPECT_EQ(RequestsOfATick(), 3U);
}

TEST(RefreshScheduler, DropsTicksUntilTheProgramHasStarted) {
  test::MonitoredProgram t;
  t.GiveAccount();
  t.GiveLinks({"a"});
  t.SetRecord("02", "1,b,b.zip,http://h/b,more");  // makes the start ask a question
  t.P().LoadForReading();
  t.P().scheduler.OnTimerTick();
  t.NewSession();
  t.Boxes().WhileOpen = [&] { t.Form().Timer1.Tick(); };
  t.P().Dispatch([&] { t.P().StartProgram(); });
  EXPECT_EQ(t.Boxes().Shown().size(), 1U);
  EXPECT_EQ(t.server.Requests().size(), 0U);
  t.Tick();
  EXPECT_EQ(t.server.Requests().size(), 3U);
}

TEST_F(RefreshSchedulerTest, RefreshesNoMoreOnceAnEventHasQuit) {
  t_.Tick();
  t_.clock.Advance(7200);
  t_.Event = [&] { t_.P().Quit(); };
  EXPECT_EQ(RequestsOfATick(), 0U);
  EXPECT_EQ(t_.LastRead(), "a=15,\r\n");
  EXPECT_EQ(t_.Setting(names::kPrevCheck), "01-15-2026 43200");
}

}  // namespace
}  // namespace tallyo
