#include "links/monitored_links.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "links/stored_records.h"
#include "tests/support/monitored_program.h"
#include "tests/support/table.h"

namespace tallyo {
namespace {

using test::Table;
using testing::ElementsAre;
using Texts = std::vector<std::string>;

class MonitoredLinksTest : public testing::Test {
 protected:
  // Starts with these records from 01 on; an empty one is none.
  void StartWith(const Texts& records) {
    program.Store().DeleteKey(Hive::LocalMachine, names::MonitorFilesKey);
    int number = 0;
    for (const std::string& text : records) {
      ++number;
      if (!text.empty()) {
        program.SetRecord(TwoDigits(number), text);
      }
    }
    program.Start();
  }
  [[nodiscard]] int Next() { return program.P().state.NextLinkIndex; }
  [[nodiscard]] const Texts& Items() { return program.Form().Combo1.Items(); }

  test::MonitoredProgram program;
};

constexpr const char* kA = "1,A,rA,pA";
constexpr const char* kB = "1,B,rB,pB";
constexpr const char* kC = "1,C,rC,pC";

TEST_F(MonitoredLinksTest, LoadsUpToTheFirstRecordThatIsNone) {
  const Table<Texts, Texts> cases = {{{}, {}},
                                     {{"", kB}, {}},
                                     {{kA, kB, "", kC}, {"A", "B"}},
                                     {{kA, "1,B", kC}, {"A"}},
                                     {{"1,A,", ",,"}, {"A", ""}},
                                     {{"1,My,Site,r,p"}, {"My"}}};
  for (const auto& [records, items] : cases) {
    StartWith(records);
    EXPECT_EQ(Items(), items);
    EXPECT_EQ(program.Form().Combo1.Text(), "");
    EXPECT_EQ(Next(), static_cast<int>(items.size()));
    EXPECT_EQ(program.Form().mnuExportAll.Enabled(), !items.empty());
  }
}

TEST_F(MonitoredLinksTest, AppendsOneBehindTheOtherAndBehind99) {
  program.Start();
  program.P().state.MaxSlots = 5;
  const auto append = [&](const std::string& name) {
    program.P().links.AppendMonitoredLink({"1", name, "r" + name, "p" + name});
  };
  for (const char* name : {"A", "B", "C"}) {
    append(name);
  }
  EXPECT_THAT(StoredRecords(program.Store()), ElementsAre(kA, kB, kC));
  EXPECT_THAT(Items(), ElementsAre("A", "B", "C"));
  EXPECT_EQ(Next(), 4);
  EXPECT_EQ(program.Form().Label4[0].Caption(), "2");
  for (int number = 4; number <= 101; ++number) {
    append("n" + std::to_string(number));
  }
  EXPECT_EQ(program.Record("100"), "1,n100,rn100,pn100");
  LinkFields fields;
  EXPECT_EQ(program.P().links.FindMonitoredLink(fields, "n101", FindBy::FriendlyName).Number(),
            "101");
  SqliteStore other(program.folder.Path() / "settings.db", StoreAccess::ReadWrite);
  other.DeleteKey(Hive::LocalMachine, RecordKey(2));
  EXPECT_FALSE(program.P().links.FindMonitoredLink(fields, "n101", FindBy::FriendlyName).found);
}

TEST_F(MonitoredLinksTest, RemovingRenumbersWhatIsBehind) {
  const Table<Texts, const char*, Texts> cases = {
      {{kA, kB, kC}, "A", {kB, kC}}, {{kA, kB}, "B", {kA}}, {{kA, kB}, "a", {kA, kB}}};
  for (const auto& [records, removed, left] : cases) {
    StartWith(records);
    const auto count = static_cast<int>(records.size());
    program.P().state.MaxSlots = 10;
    program.P().links.RemoveMonitoredLink(removed);
    EXPECT_EQ(StoredRecords(program.Store()), left) << removed;
    EXPECT_EQ(Next(), count - 1);
    EXPECT_EQ(program.Form().Label4[0].Caption(), std::to_string(10 - count));
  }
}

TEST_F(MonitoredLinksTest, ChecksThatEveryListedLinkHasItsRecord) {
  const Table<Texts, bool, std::string> cases = {
      {{kA, kB}, false, "A|pA B|pB "},        {{"1,,r,p"}, false, "|p "},
      {{kA, "1,,r,q"}, true, "A|pA "},  // an empty name behind another
      {{kA, "1,B,s"}, false, "A|pA B|pA "},   {{kA, "1,A,s,q"}, false, "A|pA A|pA "},
      {{kA, "1,My,Site,r,p"}, true, "A|pA "}, {{kA, "1,B,r,p,x", kC}, true, "A|pA "}};
  for (const auto& [records, mismatch, expected] : cases) {
    SCOPED_TRACE(expected);
    StartWith(records);
    EXPECT_EQ(program.Boxes().Shown().size(), mismatch ? 1U : 0U);
    program.Form().ListView1.ClearRows();
    EXPECT_EQ(program.P().links.CheckMonitoredLinks(), mismatch ? 65535 : 0);
    EXPECT_EQ(program.Rows({3}), expected);
  }
}

}  // namespace
}  // namespace tallyo
