#include "ui/service_info.h"

#include <gtest/gtest.h>

#include "tests/support/test_program.h"
#include "ui/check_age.h"

namespace tallyo {
namespace {

TEST(CheckAge, TellsSecondsMinutesAndDecimalsOfAnHour) {
  const struct {
    double seconds;
    const char* text;
  } cases[] = {
      {0, "0 seconds ago"},
      {45, "45 seconds ago"},
      {60, "60 seconds ago"},
      {60.99, "60 seconds ago"},
      {61, "1 minutes ago"},
      {60.0 * 60, "60 minutes ago"},
      {60.0 * 61 - 0.01, "60 minutes ago"},
      {60.0 * 70, "1Hr. 16 minutes ago"},
      {60.0 * 75, "1Hr. 25 minutes ago"},
      {60.0 * 90, "1Hr. 5 minutes ago"},
      {60.0 * 120, "2Hr.  minutes ago"},
      {60.0 * 492, "8Hr. 19 minutes ago"},
      {-0.5, "-1 seconds ago"},
      {-86100, "-86100 seconds ago"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(CheckAge(c.seconds), c.text) << c.seconds;
  }
}

class ServiceInfoTest : public testing::Test {
 protected:
  const std::string& Row(int row) { return program.Form().ListView3.Value(row, 1); }
  void Open() { program.Form().mnuServiceInfo.Click(); }

  test::TestProgram program;
};

TEST_F(ServiceInfoTest, HasItsTenRows) {
  program.Start();
  const char* const rows[] = {"Service open",
                              "Service good through",
                              "Slots left",
                              "Bytes transfered - this session",
                              "Bytes transfered - all sessions",
                              "Files monitored",
                              "Last check",
                              "Next check",
                              "Account status",
                              "Other status"};
  ASSERT_EQ(program.Form().ListView3.RowCount(), 10);
  for (int row = 1; row <= 10; ++row) {
    EXPECT_EQ(program.Form().ListView3.RowText(row), rows[row - 1]);
  }
}

TEST_F(ServiceInfoTest, OpensWithoutAnAccount) {
  program.Set(names::kBytesTransTotal, "2500000");
  program.Start();
  Open();
  EXPECT_EQ(program.P().state.CurrentScreen, screen::kServiceInfo);
  EXPECT_EQ(Row(1) + Row(2) + Row(3), "");
  EXPECT_EQ(Row(5), "2500 KB");
  EXPECT_EQ(Row(6), "0");
  EXPECT_EQ(Row(7), "Unknown");
  EXPECT_EQ(program.server.Connections(), 0);
}

TEST_F(ServiceInfoTest, OpensWithWhatTheServiceSays) {
  program.GiveAccount(2, "01/15/2027");
  program.SetRecord("01", "1,A,rA,pA");
  program.SetRecord("02", "1,B,rB,pB");
  program.Start();
  program.P().state.LastCheckTime = 43200 - 75 * 60;
  Open();
  EXPECT_EQ(Row(1), "01/15/2014");
  EXPECT_EQ(Row(2), "01/15/2027");
  EXPECT_EQ(Row(3), "0");
  EXPECT_EQ(Row(6), "2");
  EXPECT_EQ(Row(7), "1Hr. 25 minutes ago");
  EXPECT_EQ(Row(9), "Normal");
  EXPECT_EQ(Row(10), "");
  const std::string total = program.Setting(names::kBytesTransTotal);
  EXPECT_EQ(Row(5), total + " Bytes");
}

TEST_F(ServiceInfoTest, KnowsNoAgeWithoutACheck) {
  program.Start();
  for (const float time : {0.0F, -5.0F}) {
    program.P().state.LastCheckTime = time;
    Open();
    EXPECT_EQ(Row(7), "Unknown");
  }
  program.P().state.LastCheckTime = 50000;  // before midnight
  Open();
  EXPECT_EQ(Row(7), "-6800 seconds ago");
}

TEST_F(ServiceInfoTest, FollowsTheSlotsLeft) {
  const struct {
    const char* other;  // row 10 before
    const char* caption;
    const char* slots;
    const char* otherThen;
  } cases[] = {
      {"Connecting", "7", "7", "Connecting"},
      {"Connecting", "0", "0", "No slots left"},
      {"", "0", "0", "No slots left"},
      {"No slots left", "0", "0", "No slots left"},
      {"No slots left", "-2", "-2", ""},
      {"No slots left", "5", "5", ""},
      {"", "-2", "-2", ""},
      {"", "0.4x", "0.4x", ""},
      {"", "", "0", "No slots left"},
      {"", "none", "0", "No slots left"},
  };
  program.Start();
  for (const auto& c : cases) {
    program.Form().ListView3.SetValue(detail::kOtherStatus, 1, c.other);
    program.Form().Label4[0].SetCaption(c.caption);
    EXPECT_EQ(Row(3), c.slots) << c.caption;
    EXPECT_EQ(Row(10), c.otherThen) << c.caption;
  }
}

}  // namespace
}  // namespace tallyo
