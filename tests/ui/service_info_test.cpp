#include "ui/service_info.h"

#include <gtest/gtest.h>

#include "tests/support/monitored_program.h"
#include "tests/support/table.h"
#include "ui/check_age.h"

namespace tallyo {
namespace {

using test::Table;

TEST(CheckAge, TellsSecondsMinutesAndDecimalsOfAnHour) {
  const Table<double, const char*> cases = {
      {0, "0 seconds ago"},          {60.99, "60 seconds ago"},
      {61, "1 minutes ago"},         {60.0 * 61 - 0.01, "60 minutes ago"},
      {4200, "1Hr. 16 minutes ago"}, {4500, "1Hr. 25 minutes ago"},
      {5400, "1Hr. 5 minutes ago"},  {7200, "2Hr.  minutes ago"},
      {-0.5, "-1 seconds ago"},      {60.0 * 492, "8Hr. 19 minutes ago"}};
  for (const auto& [seconds, text] : cases) {
    EXPECT_EQ(CheckAge(seconds), text) << seconds;
  }
}

class ServiceInfoTest : public testing::Test {
 protected:
  void Open() { program.Form().mnuServiceInfo.Click(); }
  std::string Details() {
    std::string details;
    for (int row = 1; row <= program.Form().ListView3.RowCount(); ++row) {
      details += program.Detail(row) + "; ";
    }
    return details;
  }

  test::MonitoredProgram program;
};

TEST_F(ServiceInfoTest, OpensWithAndWithoutAnAccount) {
  program.Set(names::kBytesTransTotal, "2500000");
  program.Start();
  Open();
  EXPECT_EQ(program.P().state.CurrentScreen, screen::kServiceInfo);
  EXPECT_EQ(Details(), "; ; ; ; 2500 KB; 0; Unknown; ; Unknown; Not connected; ");
  EXPECT_EQ(program.server.Connections(), 0);
  program.GiveAccount(2, "01/15/2027");
  program.GiveLinks({"A", "B"});
  program.Start();
  program.P().state.LastCheckTime = 43200 - 75 * 60;
  Open();
  EXPECT_EQ(Details(),
            "01/15/2014; 01/15/2027; 0; 82 Bytes; 2500.082 KB; 2; 1Hr. 25 minutes ago; ; Normal; "
            "; ");
  const Table<float, const char*> ages = {
      {-5.0F, "Unknown"}, {50000, "-6800 seconds ago"}};  // the latter before midnight
  for (const auto& [time, age] : ages) {
    program.P().state.LastCheckTime = time;
    Open();
    EXPECT_EQ(program.Detail(detail::kLastCheck), age);
  }
}

TEST_F(ServiceInfoTest, FollowsTheSlotsLeft) {
  const Table<const char*, const char*, const char*, const char*> cases = {
      {"Connecting", "7", "7", "Connecting"},
      {"Connecting", "0", "0", "No slots left"},
      {"No slots left", "-2", "-2", ""},
      {"", "0.4x", "0.4x", ""},
      {"", "none", "0", "No slots left"}};
  program.Start();
  for (const auto& [other, caption, slots, otherThen] : cases) {
    program.Form().ListView3.SetValue(detail::kOtherStatus, 1, other);
    program.Form().Label4[0].SetCaption(caption);
    EXPECT_EQ(program.Detail(detail::kSlotsLeft), slots) << caption;
    EXPECT_EQ(program.Detail(detail::kOtherStatus), otherThen) << caption;
  }
}

}  // namespace
}  // namespace tallyo
