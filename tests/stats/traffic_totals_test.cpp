#include "stats/traffic_totals.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/support/monitored_program.h"

namespace tallyo {
namespace {

TEST(TrafficTotals, CountOnFromTheTextThatIsShown) {
  const struct {
    const char* before;
    std::vector<std::int32_t> counts;
    const char* after;
  } rows[] = {{"", {900}, "900 Bytes"},
              {"", {900, 900}, "1.8 KB"},
              {"", {900, 900, 900}, "902 Bytes"},
              {"2.5 KB", {10}, "12 Bytes"},
              {"3.5 KB", {10}, "14 Bytes"},
              {"about 12", {10}, "10 Bytes"},
              {"2147483646 Bytes", {1}, "2147483.647 KB"},
              {"2147483647 Bytes", {1}, "2147483647 Bytes"},
              {"2147483648", {0}, "2147483648"}};
  test::MonitoredProgram t;
  t.Start();
  for (const int shown : {detail::kBytesSession, detail::kBytesTotal}) {
    for (const auto& row : rows) {
      SCOPED_TRACE(row.before);
      const int other = detail::kBytesSession + detail::kBytesTotal - shown;
      t.Form().ListView3.SetValue(shown, 1, row.before);
      t.Form().ListView3.SetValue(other, 1, "");
      t.Set(names::kBytesTransTotal, "");
      std::int64_t sum = 0;
      for (const std::int32_t count : row.counts) {
        t.P().traffic.AddTransferredBytes(count, 4);
        t.P().traffic.AddTransferredBytes(count, 5);  // no row that counts
        sum += count;
      }
      EXPECT_EQ(t.Detail(shown), row.after);
      EXPECT_NE(t.Detail(other), "") << "the other row counts whatever becomes of this one";
      EXPECT_EQ(t.Setting(names::kBytesTransTotal), std::to_string(sum));
    }
  }
}

TEST(TrafficTotals, KeepTheTotalOfAllSessionsAsAnExactNumber) {
  const struct {
    const char* before;
    std::int32_t count;
    const char* after;
  } rows[] = {{"", 5, "5"},
              {" 12 KB", 3, "15"},
              {"4294967296", 2147483647, "6442450943"},
              {"123456789012345", 5, "123456789012350"}};
  test::MonitoredProgram t;
  for (const auto& row : rows) {
    t.Set(names::kBytesTransTotal, row.before);
    t.Start();
    EXPECT_EQ(t.Detail(detail::kBytesSession), "");
    EXPECT_EQ(t.Detail(detail::kBytesTotal), row.before);
    t.P().traffic.AddTransferredBytes(row.count, 4);
    EXPECT_EQ(t.Setting(names::kBytesTransTotal), row.after);
  }
}

}  // namespace
}  // namespace tallyo
