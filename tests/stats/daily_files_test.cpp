#include "stats/daily_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "stats/daily_batch.h"
#include "tests/support/monitored_program.h"
#include "tests/support/table.h"

namespace tallyo {
namespace {

using std::string_literals::operator""s;
using test::kNoFile;
using test::Table;

constexpr const char* kFile = "Data/2026/a-Jan";

// Started on 2026-01-15 at 12:00:00.
class DailyFilesTest : public testing::Test {
 protected:
  DailyFilesTest() { t_.Start(); }
  bool Write(const std::string& name) { return t_.P().dailyFiles.WriteDailyCount(4, name); }
  void Load(std::string_view month, std::string_view name) {
    t_.P().dailyFiles.LoadDailyFile(month, name);
  }
  void SetCell(int hour, int day, const std::string& text) {
    t_.Form().ListView2.SetValue(hour + 1, day, text);
  }

  // Every filled cell as "day.hour=hits ", hour by hour.
  std::string Cells() {
    std::string cells;
    for (int hour = 0; hour < 24; ++hour) {
      for (int day = 1; day <= 31; ++day) {
        const std::string& hits = t_.Form().ListView2.Value(hour + 1, day);
        if (!hits.empty()) {
          cells += std::to_string(day) + "." + std::to_string(hour) + "=" + hits + " ";
        }
      }
    }
    return cells;
  }

  test::MonitoredProgram t_;
};

TEST_F(DailyFilesTest, AddHitsToTheLineOfTheHour) {
  const Table<const char*, const char*> rows = {
      {kNoFile, "15124\r\n"},
      {"15123\r\n", "15127\r\n"},
      {"200105\r\n15121\r\n010203\r\n", "200105\r\n15125\r\n010203\r\n"},
      {"10015\n11016\r12017\r\n13018", "10015\r\n11016\r\n12017\r\n13018\r\n15124\r\n"},
      {"15121\n1512x", "15125\r\n15124\r\n"},
      {"151232767\r\n", "151232771\r\n"},
      {"\r\nabc\r\n151", "\r\nabc\r\n151\r\n15124\r\n"}};
  for (const auto& [before, after] : rows) {
    t_.PutFile(kFile, before);
    EXPECT_TRUE(Write("a"));
    EXPECT_EQ(t_.Daily("a"), after) << before;
    EXPECT_FALSE(t_.HasFile("Data/tmp"));
  }
}

TEST_F(DailyFilesTest, TakeManyCountsAsTheyTakeEach) {
  std::vector<std::string> written;
  {
    DailyBatch batch(t_.P().dailyFiles, [&](const std::string& name) { written.push_back(name); });
    for (int i = 0; i < 100; ++i) {
      batch.Add(1, "n" + std::to_string(i));
    }
    batch.Add(2, "a");
    batch.Add(2, "no/name");
    t_.clock.Set(2026, 1, 15, 13, 0, 0);
    batch.Add(3, "a");
    batch.Add(4, "a");
    EXPECT_EQ(t_.Daily("a"), kNoFile);
  }
  EXPECT_EQ(t_.Daily("a"), "15122\r\n15137\r\n");
  EXPECT_EQ(written.size(), 103U);
}

TEST_F(DailyFilesTest, ClearTheWorkOfAKilledSessionAtTheStart) {
  for (const char* const left : {"Data/tmp", "Data/tmp-1", "Data/tmp-63"}) {
    t_.WriteFile(left, "15121\r\n");
    t_.Start();
    EXPECT_FALSE(t_.HasFile(left)) << left;
  }
}

TEST_F(DailyFilesTest, KeepLinksMonthsAndTheYearOfTheStartApart) {
  t_.clock.Set(2025, 12, 31, 23, 59, 0);
  t_.Start();
  Write("a");
  t_.clock.Set(2026, 1, 1, 0, 30, 0);
  Write("a");
  EXPECT_EQ(t_.TextOrNoFile("Data/2025/a-Dec"), "31234\r\n");
  EXPECT_EQ(t_.TextOrNoFile("Data/2025/a-Jan"), "01004\r\n");
  EXPECT_EQ(t_.Daily("a"), kNoFile);
  Load("", "a");
  EXPECT_EQ(Cells(), "1.0=4 ");
}

TEST_F(DailyFilesTest, AreNeverMadeForANameThatIsNoFileName) {
  const std::set<std::string> before = t_.Tree();
  for (const std::string& name : {"../x"s, "..\\x"s, "a\nb"s, "a\0b"s, std::string(252, 'x')}) {
    EXPECT_FALSE(Write(name)) << name;
    SetCell(3, 3, "stale");
    Load("Jan", name);
    EXPECT_EQ(Cells(), "") << name;
  }
  EXPECT_EQ(t_.Tree(), before);
  for (const std::string& name : {std::string(251, 'x'), "caf\xC3\xA9 & <b>, \xE9"s, ".."s}) {
    EXPECT_TRUE(Write(name)) << name;
  }
}

TEST_F(DailyFilesTest, AreShownUpToTheFirstLineWithoutAPlace) {
  const Table<const char*, const char*> rows = {
      {kNoFile, ""},
      {"312305\n010007\r150912", "1.0=7 15.9=12 31.23=5 "},
      {"150932767.4\r\n160932768\r\n17091\r\n", "15.9=32767 "},
      {"15091\r\n320901\r\n16091\r\n", "15.9=1 "},
      {"15091\r\n15245\r\n16091\r\n", "15.9=1 "}};
  for (const auto& [file, cells] : rows) {
    SCOPED_TRACE(file);
    t_.PutFile(kFile, file);
    for (const char* month : {"Jan", ""}) {
      SetCell(5, 5, "stale");
      SetCell(23, 31, "stale");
      Load(month, "a");
      EXPECT_EQ(Cells(), cells);
    }
  }
}

}  // namespace
}  // namespace tallyo
