#include "stats/traffic_totals.h"

#include <gtest/gtest.h>

#include "tests/support/monitored_program.h"
#include "tests/support/table.h"

namespace tallyo {
namespace {

TEST(TrafficTotals, CountOnFromTheTextThatIsShown) {
  const test::Table<const char*, std::int32_t, const char*> rows = {
      {"", 900, "900 Bytes"},         {"900 Bytes", 100, "1000 Bytes"},
      {"1000 Bytes", 1, "1.001 KB"},  {"1.8 KB", 900, "902 Bytes"},
      {"3.5 KB", 10, "14 Bytes"},     {"2147483647 Bytes", 1, "2147483647 Bytes"},
      {"2147483648", 0, "2147483648"}};
  test::MonitoredProgram t;
  t.Start();
  for (const int shown : {detail::kBytesSession, detail::kBytesTotal}) {
    for (const auto& [before, count, after] : rows) {
      SCOPED_TRACE(before);
      const int other = detail::kBytesSession + detail::kBytesTotal - shown;
      t.Form().ListView3.SetValue(shown, 1, before);
      t.Form().ListView3.SetValue(other, 1, "");
      t.P().traffic.AddTransferredBytes(count, 4);
      t.P().traffic.AddTransferredBytes(count, 5);  // no row that counts
      EXPECT_EQ(t.Detail(shown), after);
      EXPECT_NE(t.Detail(other), "") << "the other row counts whatever becomes of this one";
    }
  }
}

TEST(TrafficTotals, KeepTheTotalOfAllSessionsAsAnExactNumber) {
  const test::Table<const char*, std::int32_t, const char*> rows = {
      {" 12 KB", 3, "15"}, {"4294967296", 2147483647, "6442450943"}};
  test::MonitoredProgram t;
  for (const auto& [before, count, after] : rows) {
    t.Set(names::kBytesTransTotal, before);
    t.Start();
    EXPECT_EQ(t.Detail(detail::kBytesSession), "");
    EXPECT_EQ(t.Detail(detail::kBytesTotal), before);
    t.P().traffic.AddTransferredBytes(count, 4);
    EXPECT_EQ(t.Setting(names::kBytesTransTotal), after);
  }
}

}  // namespace
}  // namespace tallyo
