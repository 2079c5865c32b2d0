#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/program.h"
#include "platform/transport_failure.h"
#include "tests/support/monitored_program.h"
#include "tests/support/table.h"
#include "text/runtime_error.h"

namespace tallyo {
namespace {

class QuittingTest : public testing::Test {
 protected:
  QuittingTest() { program.StartWith({{"A", "5"}, {"B", ""}}); }

  test::MonitoredProgram program;
};

TEST_F(QuittingTest, WritesTheCountersAndTheTimeOfTheLastCheckOnce) {
  const test::Table<float, const char*, const char*> cases = {
      {36000.125F, "01-15-2026 36000.12", "A=5,B=,\r\n"},
      {0.1F, "01-15-2026 0.1", "A=5,B=0,\r\n"}};  // an empty counter is read back as 0
  for (const auto& [time, stored, snapshot] : cases) {
    program.P().state.LastCheckTime = time;
    program.P().Quit();
    EXPECT_EQ(program.LastRead(), snapshot);
    program.Form().ListView1.SetValue(1, 1, "6");
    program.P().state.LastCheckTime = 7;
    program.P().Quit();
    EXPECT_EQ(program.LastRead(), snapshot);
    EXPECT_EQ(program.Setting(names::kPrevCheck), stored);
    program.Start();
  }
}

TEST_F(QuittingTest, AtTheQuestionOfTheStartKeepsTheCountersOfLastTime) {
  program.SetRecord("02", "1,My,Site,rB,pB");
  program.PutFile("Data/LastRead.dat", "A=5,\r\n");
  program.NewSession();
  program.Boxes().NextAnswer = BoxAnswer::Yes;
  program.Boxes().WhileOpen = [&] { program.P().Quit(); };
  EXPECT_FALSE(program.P().Dispatch([&] { program.P().StartProgram(); }));
  EXPECT_TRUE(program.P().Ended());
  EXPECT_EQ(program.LastRead(), "A=5,\r\n");
  EXPECT_NE(program.Record("01"), "");
}

TEST_F(QuittingTest, IsNotWhatAnEventThatFailsComesTo) {
  const std::function<void()> failures[] = {
      [] { throw RuntimeError("overflow"); },
      [] { throw TransportFailure(TransportFailure::Reason::Failed, "no connection"); },
      [&] { program.P().screens.ShowScreen(9); }};
  bool wentOn = false;
  for (const auto& fail : failures) {
    EXPECT_FALSE(program.P().Dispatch([&] {
      fail();
      wentOn = true;
    }));
  }
  EXPECT_FALSE(wentOn);
  EXPECT_THAT(program.Boxes().Texts(), testing::IsEmpty());
  EXPECT_TRUE(program.P().Dispatch([] {}));
}

}  // namespace
}  // namespace tallyo
