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
  [[nodiscard]] Texts Stored() { return StoredRecords(program.Store()); }
  void Append(const std::string& name) {
    program.P().links.AppendMonitoredLink({"1", name, "r" + name, "p" + name});
  }
  [[nodiscard]] int Next() { return program.P().state.NextLinkIndex; }
  [[nodiscard]] const Texts& Items() { return program.Form().Combo1.Items(); }
  [[nodiscard]] std::string SlotsLeft() { return program.Form().Label4[0].Caption(); }

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

TEST_F(MonitoredLinksTest, AppendsAfterTheLastWhereAskedTo) {
  const Table<bool, const char*, int> cases = {
      {false, "", 2}, {false, "1", 3}, {true, "", 3}, {true, "0", 2}, {true, "1", 3}};
  for (const auto& [built, setting, next] : cases) {
    program.appendAfterLast = built;
    program.Set(names::kAppendAfterLast, setting);
    StartWith({kA, kB});
    EXPECT_EQ(Next(), next) << built << " " << setting;
  }
  Append("C");
  EXPECT_THAT(Stored(), ElementsAre(kA, kB, kC));
}

TEST_F(MonitoredLinksTest, AppendsOneBehindTheOtherAndBehind99) {
  program.Start();
  program.P().state.MaxSlots = 5;
  for (const char* name : {"A", "B", "C"}) {
    Append(name);
  }
  EXPECT_THAT(Stored(), ElementsAre(kA, kB, kC));
  EXPECT_THAT(Items(), ElementsAre("A", "B", "C"));
  EXPECT_EQ(Next(), 4);
  EXPECT_EQ(SlotsLeft(), "2");
  for (int number = 4; number <= 101; ++number) {
    Append("n" + std::to_string(number));
  }
  EXPECT_EQ(program.Record("100"), "1,n100,rn100,pn100");
  LinkFields fields;
  EXPECT_EQ(program.P().links.FindMonitoredLink(fields, "n101", FindBy::FriendlyName).Number(),
            "101");
}

TEST_F(MonitoredLinksTest, TheFirstAppendAfterARestartOverwritesTheLast) {
  StartWith({kA, kB});
  Append("C");
  EXPECT_THAT(Stored(), ElementsAre(kA, kC));
  EXPECT_THAT(Items(), ElementsAre("A", "B", "C"));
  EXPECT_EQ(SlotsLeft(), "-3");
  Append("D");
  EXPECT_THAT(Stored(), ElementsAre(kA, kC, "1,D,rD,pD"));
}

TEST_F(MonitoredLinksTest, RemovingRenumbersWhatIsBehind) {
  const Table<Texts, const char*, Texts> cases = {
      {{kA, kB, kC}, "A", {kB, kC}}, {{kA, kB, kC}, "B", {kA, kC}},
      {{kA, kB, kC}, "C", {kA, kB}}, {{kA}, "A", {}},
      {{kA, kB}, "a", {kA, kB}},     {{kA, kB, kA}, "A", {kB, kA}}};
  for (const auto& [records, removed, left] : cases) {
    SCOPED_TRACE(std::to_string(records.size()) + removed);
    StartWith(records);
    const auto count = static_cast<int>(records.size());
    program.P().state.MaxSlots = 10;
    program.P().links.RemoveMonitoredLink(removed);
    EXPECT_EQ(Stored(), left);
    EXPECT_EQ(program.Store().KeyExists(Hive::LocalMachine, RecordKey(count)),
              left.size() == records.size());
    EXPECT_EQ(Next(), count - 1);
    EXPECT_EQ(program.Form().Combo1.Count(), count);
    EXPECT_EQ(SlotsLeft(), std::to_string(10 - count));
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
