#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/program.h"
#include "tests/support/test_program.h"

namespace tallyo {
namespace {

constexpr const char* kSnapshot = "Data/LastRead.dat";

class QuittingTest : public testing::Test {
 protected:
  void StartWithLinks() {
    program.GiveAccount();
    program.SetRecord("01", "1,A,rA,pA");
    program.SetRecord("02", "1,B,rB,pB");
    program.Start();
    program.Form().ListView1.SetValue(1, 1, "5");
  }

  test::TestProgram program;
};

TEST_F(QuittingTest, WritesAnEmptyLineForAnEmptyList) {
  program.Start();
  program.P().Quit();
  EXPECT_EQ(program.FileText(kSnapshot), "\r\n");
  EXPECT_EQ(program.Setting(names::kPrevCheck), "01-15-2026 0");
  EXPECT_FALSE(program.HasFile("Data/tmp"));
}

TEST_F(QuittingTest, WritesTheCountersAndTheTimeOfTheLastCheck) {
  const struct {
    float time;
    const char* stored;
    const char* snapshot;
  } cases[] = {{36000.125F, "01-15-2026 36000.12", "A=5,B=,\r\n"},
               {0.1F, "01-15-2026 0.1", "A=5,B=0,\r\n"}};  // an empty counter is read back as 0
  for (const auto& c : cases) {
    StartWithLinks();
    program.P().state.LastCheckTime = c.time;
    program.P().Quit();
    EXPECT_EQ(program.FileText(kSnapshot), c.snapshot);
    EXPECT_EQ(program.Setting(names::kPrevCheck), c.stored);
  }
}

TEST_F(QuittingTest, HappensOnce) {
  StartWithLinks();
  program.P().Quit();
  program.Form().ListView1.SetValue(1, 1, "6");
  program.P().state.LastCheckTime = 7;
  program.P().Quit();
  EXPECT_EQ(program.FileText(kSnapshot), "A=5,B=,\r\n");
  EXPECT_EQ(program.Setting(names::kPrevCheck), "01-15-2026 0");
}

TEST_F(QuittingTest, WritesTheTimeWhereTheCountersCannotBeWritten) {
  StartWithLinks();
  std::filesystem::create_directory(program.folder.Path() / kSnapshot);
  program.P().state.LastCheckTime = 7;
  program.P().Quit();
  EXPECT_EQ(program.Setting(names::kPrevCheck), "01-15-2026 7");
}

TEST_F(QuittingTest, UnwindsWhateverWaits) {
  StartWithLinks();
  program.GiveCounters("<P>9 rA\n<P>9 rB\n");
  program.server.Hold("/cgi-bin/");
  program.Event = [&] {
    if (program.server.Requests().size() == 2) {  // the account's and the counters'
      program.P().Quit();
    }
  };
  EXPECT_FALSE(program.P().Dispatch([&] { program.Form().mnuViewStats.Click(); }));
  EXPECT_TRUE(program.P().Ended());
  EXPECT_EQ(program.P().requests.TransferTimeout(), 1);
  EXPECT_EQ(program.Form().ListView3.Value(detail::kOtherStatus, 1), "Not connected");
  EXPECT_EQ(program.Form().ListView1.Value(1, 1), "5");
  EXPECT_EQ(program.FileText(kSnapshot), "A=5,B=,\r\n");
}

TEST_F(QuittingTest, AtTheQuestionOfTheStartKeepsTheCountersOfLastTime) {
  program.SetRecord("01", "1,A,rA,pA");
  program.SetRecord("02", "1,My,Site,rB,pB");
  program.WriteFile(kSnapshot, "A=5,\r\n");
  program.NewSession();
  program.Boxes().NextAnswer = BoxAnswer::Yes;
  program.Boxes().WhileOpen = [&] { program.P().Quit(); };
  EXPECT_FALSE(program.P().Dispatch([&] { program.P().StartProgram(); }));
  EXPECT_TRUE(program.P().Ended());
  EXPECT_EQ(program.FileText(kSnapshot), "A=5,\r\n");
  EXPECT_EQ(program.Record("01"), "1,A,rA,pA");
}

TEST_F(QuittingTest, UnwindsAnOpenBox) {
  StartWithLinks();
  program.Form().Combo1.SetText("A");
  program.server.Answer("/cgi-bin/", "<P>ok");
  program.Form().Label2[action::kRemove].Click();
  program.Boxes().WhileOpen = [&] { program.P().Quit(); };
  EXPECT_FALSE(program.P().Dispatch([&] { program.Form().Command1[1].Click(); }));
  EXPECT_EQ(program.Form().Combo1.Text(), "A");  // emptied only behind the box
  EXPECT_EQ(program.FileText(kSnapshot), "B=,\r\n");
}

}  // namespace
}  // namespace tallyo
