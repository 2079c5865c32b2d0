#include "links/monitored_links.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "links/stored_records.h"
#include "tests/support/test_program.h"

namespace tallyo {
namespace {

using testing::ElementsAre;
using Texts = std::vector<std::string>;
using Records = std::vector<std::pair<std::string, std::string>>;  // number, text

class MonitoredLinksTest : public testing::Test {
 protected:
  void StartWith(const Records& records) {
    for (const auto& [number, text] : records) {
      program.SetRecord(number, text);
    }
    program.Start();
  }
  [[nodiscard]] Texts Stored() {
    Texts texts;
    for (int n = 1;; ++n) {
      std::string text = program.Record((n < 10 ? "0" : "") + std::to_string(n));
      if (text.empty()) {
        return texts;
      }
      texts.push_back(std::move(text));
    }
  }
  void Append(const std::string& name) {
    program.P().links.AppendMonitoredLink({"1", name, "r" + name, "http://" + name});
  }
  [[nodiscard]] Texts Rows() {  // name|path
    const ReportList& list = program.Form().ListView1;
    Texts rows;
    for (int row = 1; row <= list.RowCount(); ++row) {
      rows.push_back(list.RowText(row) + "|" + list.Value(row, 3));
    }
    return rows;
  }
  [[nodiscard]] int Next() { return program.P().state.NextLinkIndex; }
  [[nodiscard]] const Texts& Items() { return program.Form().Combo1.Items(); }

  test::TestProgram program;
};

const Records kA = {{"01", "1,A,rA,http://A"}};
const Records kAB = {{"01", "1,A,rA,http://A"}, {"02", "1,B,rB,http://B"}};
const Records kABC = {
    {"01", "1,A,rA,http://A"}, {"02", "1,B,rB,http://B"}, {"03", "1,C,rC,http://C"}};

TEST_F(MonitoredLinksTest, LoadsUpToTheFirstRecordThatIsNone) {
  const struct {
    const char* name;
    Records records;
    Texts items;
  } cases[] = {
      {"none", {}, {}},
      {"only behind the first", {{"02", "1,B,r,p"}}, {}},
      {"a gap", {{"01", "1,A,r,p"}, {"02", "1,B,r,p"}, {"04", "1,D,r,p"}}, {"A", "B"}},
      {"one comma", {{"01", "1,A,r,p"}, {"02", "1,B"}, {"03", "1,C,r,p"}}, {"A"}},
      {"two commas are enough", {{"01", "1,A,"}, {"02", ",,"}}, {"A", ""}},
      {"a name with a comma", {{"01", "1,My,Site,r,p"}}, {"My"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    test::TestProgram fresh;
    for (const auto& [number, text] : c.records) {
      fresh.SetRecord(number, text);
    }
    fresh.Start();
    EXPECT_EQ(fresh.Form().Combo1.Items(), c.items);
    EXPECT_EQ(fresh.Form().Combo1.Text(), "");
    EXPECT_EQ(fresh.P().state.NextLinkIndex, static_cast<int>(c.items.size()));
    EXPECT_EQ(fresh.Form().mnuExportAll.Enabled(), !c.items.empty());
  }
}

TEST_F(MonitoredLinksTest, AppendsAfterTheLastWhereAskedTo) {
  const struct {
    bool built;
    const char* setting;
    int next;
  } cases[] = {{false, "", 2}, {false, "0", 2}, {false, "1", 3}, {false, "yes", 2},
               {true, "", 3},  {true, "0", 2},  {true, "1", 3}};
  for (const auto& c : cases) {
    program.appendAfterLast = c.built;
    program.Set(names::kAppendAfterLast, c.setting);
    StartWith(kAB);
    EXPECT_EQ(Next(), c.next) << c.built << " " << c.setting;
  }
  Append("C");
  EXPECT_THAT(Stored(), ElementsAre("1,A,rA,http://A", "1,B,rB,http://B", "1,C,rC,http://C"));
}

TEST_F(MonitoredLinksTest, AppendsOneBehindTheOtherInAnEmptyRun) {
  program.Start();
  program.P().state.MaxSlots = 5;
  for (const char* name : {"A", "B", "C"}) {
    Append(name);
  }
  EXPECT_THAT(Stored(), ElementsAre("1,A,rA,http://A", "1,B,rB,http://B", "1,C,rC,http://C"));
  EXPECT_THAT(Items(), ElementsAre("A", "B", "C"));
  EXPECT_EQ(Next(), 4);
  EXPECT_EQ(program.Form().Label4[0].Caption(), "2");
}

TEST_F(MonitoredLinksTest, TheFirstAppendAfterARestartOverwritesTheLast) {
  StartWith(kAB);
  Append("C");
  EXPECT_THAT(Stored(), ElementsAre("1,A,rA,http://A", "1,C,rC,http://C"));
  EXPECT_THAT(Items(), ElementsAre("A", "B", "C"));
  EXPECT_EQ(Next(), 3);
  EXPECT_EQ(program.Form().Label4[0].Caption(), "-3");
  Append("D");
  EXPECT_EQ(program.Record("03"), "1,D,rD,http://D");
}

TEST_F(MonitoredLinksTest, NumbersGoOnBehind99) {
  program.Start();
  program.P().state.NextLinkIndex = 9;
  Append("nine");
  Append("ten");
  program.P().state.NextLinkIndex = 99;
  Append("A");
  Append("B");
  EXPECT_EQ(program.Record("09"), "1,nine,rnine,http://nine");
  EXPECT_EQ(program.Record("10"), "1,ten,rten,http://ten");
  EXPECT_EQ(program.Record("99"), "1,A,rA,http://A");
  EXPECT_EQ(program.Record("100"), "1,B,rB,http://B");
}

TEST_F(MonitoredLinksTest, RemovingRenumbersWhatIsBehind) {
  const std::string a = kABC[0].second;
  const std::string b = kABC[1].second;
  const std::string c = kABC[2].second;
  const struct {
    const char* name;
    Records records;
    const char* removed;
    Texts left;
  } cases[] = {
      {"first", kABC, "A", {b, c}},
      {"middle", kABC, "B", {a, c}},
      {"last", kABC, "C", {a, b}},
      {"only", kA, "A", {}},
      {"unknown", kABC, "X", {a, b, c}},
      {"other case", kABC, "a", {a, b, c}},
      {"first of two", {{"01", a}, {"02", b}, {"03", a}}, "A", {b, a}},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.name);
    program.Store().DeleteKey(Hive::LocalMachine, names::MonitorFilesKey);
    StartWith(row.records);
    const auto count = static_cast<int>(row.records.size());
    program.P().state.MaxSlots = 10;
    program.P().links.RemoveMonitoredLink(row.removed);
    EXPECT_EQ(Stored(), row.left);
    EXPECT_EQ(program.Store().KeyExists(Hive::LocalMachine, RecordKey(count)),
              static_cast<int>(row.left.size()) == count);
    EXPECT_EQ(Next(), count - 1);
    EXPECT_EQ(program.Form().Combo1.Count(), count);
    EXPECT_EQ(program.Form().Label4[0].Caption(), std::to_string(10 - count));
  }
}

TEST_F(MonitoredLinksTest, ChecksThatEveryListedLinkHasItsRecord) {
  const struct {
    const char* name;
    Records records;
    bool mismatch;
    Texts rows;
  } cases[] = {
      {"none", {}, false, {}},
      {"two", kAB, false, {"A|http://A", "B|http://B"}},
      {"an empty first name", {{"01", "1,,r,p"}}, false, {"|p"}},
      {"an empty name behind another", {{"01", "1,A,r,p"}, {"02", "1,,r,q"}}, true, {"A|p"}},
      {"a short record keeps the path",
       {{"01", "1,A,r,p"}, {"02", "1,B,s"}},
       false,
       {"A|p", "B|p"}},
      {"two of one name", {{"01", "1,A,r,p"}, {"02", "1,A,s,q"}}, false, {"A|p", "A|p"}},
      {"a name with a comma", {{"01", "1,A,r,p"}, {"02", "1,My,Site,r,p"}}, true, {"A|p"}},
      {"five fields", {{"01", "1,A,r,p"}, {"02", "1,B,r,p,x"}, {"03", "1,C,r,p"}}, true, {"A|p"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    program.Store().DeleteKey(Hive::LocalMachine, names::MonitorFilesKey);
    StartWith(c.records);  // which checks once; the rows are those of its check
    EXPECT_EQ(program.Boxes().Shown().size(), c.mismatch ? 1U : 0U);
    EXPECT_EQ(Rows(), c.rows);
    program.Form().ListView1.ClearRows();
    EXPECT_EQ(program.P().links.CheckMonitoredLinks(), c.mismatch ? 65535 : 0);
    EXPECT_EQ(Rows(), c.rows);
  }
}

}  // namespace
}  // namespace tallyo
