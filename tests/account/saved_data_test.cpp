#include "account/saved_data.h"

#include <gtest/gtest.h>

#include "tests/support/monitored_program.h"

namespace tallyo {
namespace {

using test::kNoFile;

// Settings, links, counters and history of some time of use; nothing is started yet.
class SavedDataTest : public testing::Test {
 protected:
  SavedDataTest() {
    t_.GiveAccount();
    t_.Set(names::kAccOpen, "01/15/2014");
    t_.Set(names::kBytesTransTotal, "12345");
    t_.Set(names::kPrevCheck, "01-15-2026 43000");
    t_.Set(names::kUpdDefTime, "2");
    t_.GiveLinks({"a", "b", "c"});
    t_.PutFile("Data/LastRead.dat", "a=10,b=5,c=1,\r\n");
    t_.PutFile("Data/2026/a-Jan", "15091\r\n");
  }

  // What a reset takes and what it keeps.
  void ExpectStored(bool reset) {
    EXPECT_EQ(t_.Record("01") + t_.Record("03"),
              reset ? "" : "1,a,a.zip,http://h/a1,c,c.zip,http://h/c");
    EXPECT_EQ(t_.Store().KeyExists(Hive::LocalMachine, names::MonitorFilesKey), !reset);
    EXPECT_EQ(t_.Setting(names::kAccOpen), reset ? "" : "01/15/2014");
    EXPECT_EQ(t_.LastRead(), reset ? kNoFile : "a=10,b=5,c=1,\r\n");
    EXPECT_EQ(t_.Setting(names::kUser) + t_.Setting(names::kAccount), "Acmemysite");
    EXPECT_EQ(t_.Setting(names::kBytesTransTotal), "12345");
    EXPECT_EQ(t_.Setting(names::kPrevCheck), "01-15-2026 43000");
    EXPECT_EQ(t_.Setting(names::kUpdDefTime), "2");
    EXPECT_EQ(t_.Daily("a"), "15091\r\n");
  }

  test::MonitoredProgram t_;
};

TEST_F(SavedDataTest, GoesOnlyWhereThePersonAgrees) {
  t_.SetRecord("02", "1,b,b.zip,http://h/b,more");  // brings up the question at the start
  for (const bool agrees : {false, true}) {
    t_.NewSession();
    t_.Boxes().NextAnswer = agrees ? BoxAnswer::Yes : BoxAnswer::No;
    t_.P().Dispatch([&] { t_.P().StartProgram(); });
    EXPECT_EQ(t_.Boxes().Shown().size(), 1U);
    ExpectStored(agrees);
    EXPECT_EQ(t_.P().state.LastCheckTime, agrees ? 0 : 43000);
    EXPECT_EQ(t_.P().state.NextLinkIndex, agrees ? 0 : 3);
    EXPECT_EQ(t_.Form().Combo1.Count(), agrees ? 0 : 3);
    EXPECT_EQ(t_.Rows(), agrees ? "" : "a|10| ") << "the counters are loaded afterwards";
  }
}

TEST_F(SavedDataTest, GoesWithTheRecordsBehindTheCountAndThenWithTheWindow) {
  t_.Start();
  t_.P().dailyStatus.Open();
  t_.P().savedData.ResetSavedData(1);
  ExpectStored(true);
  EXPECT_EQ(t_.P().state.LastCheckTime, 0);
  EXPECT_EQ(t_.Form().Combo1.Count(), 3);
  // Without a snapshot to delete only the confirmed reset goes on to the time of the last check.
  t_.P().state.LastCheckTime = 43000;
  t_.P().savedData.ResetSavedData(3);
  EXPECT_EQ(t_.P().state.LastCheckTime, 43000);
  t_.P().savedData.ConfirmMisconfigurationReset(Confirm::Silently);
  EXPECT_EQ(t_.Boxes().Shown().size(), 0U);
  EXPECT_EQ(t_.P().state.LastCheckTime, 0);
  EXPECT_EQ(t_.Form().Combo2.Count(), 0);
  ExpectStored(true);
}

}  // namespace
}  // namespace tallyo
