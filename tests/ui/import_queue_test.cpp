#include "ui/import_queue.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "tests/support/monitored_program.h"
#include "tests/support/table.h"

namespace tallyo {
namespace {

constexpr const char* kAdd = "/cgi-bin/Tallyo/devstats.cgi?account=mysitef.txt&action=add";

// An import screen with three lines, of which 1 and 3 are checked, beside one monitored link.
class ImportQueueTest : public testing::Test {
 protected:
  ImportQueueTest() { StartWithLines(); }

  void StartWithLines() {
    t.GiveAccount();
    t.server.Answer("/cgi-bin/", "<P>ok\n");
    t.server.Answer("/page",
                    "<A HREF=\"http://x/1.zip\"><A HREF=\"http://x/2.zip\">"
                    "<A HREF=\"http://x/3.zip\">");
    t.SetRecord("01", "1,A,rA,pA");
    t.Start();
    t.P().screens.ShowScreen(screen::kManageLinks);
    Import({true, false, true});
  }

  MainForm& Form() { return t.Form(); }
  TextBox& Field(std::size_t index) { return Form().Text1[index]; }
  bool Waiting() { return t.P().importQueue.Waiting(); }
  void Dispatch(const std::function<void()>& event) { t.P().Dispatch(event); }

  void Import(const std::vector<bool>& checked) {
    Field(field::kLinkPath).SetText(t.server.Url("/page"));
    Choose(action::kImport);
    ASSERT_EQ(Form().List1.Lines().size(), checked.size());
    for (std::size_t i = 0; i < checked.size(); ++i) {
      Form().List1.Check(i, checked[i]);
    }
  }
  void UseChecked() {
    Dispatch([this] { Form().Command2.Click(); });
  }
  void Choose(std::size_t actionLabel) {
    Dispatch([&] { Form().Label2[actionLabel].Click(); });
  }
  // Names the link in the fields and submits it: as a new one, or the removal of the monitored one.
  void Submit(std::size_t actionLabel, const std::string& name) {
    Form().Combo1.SetText("A");
    Field(field::kFriendlyName).SetText(name);
    Choose(actionLabel);
    Dispatch([this] { Form().Command1[1].Click(); });
  }
  void Add(const std::string& name) { Submit(action::kAdd, name); }

  // "path|reference|name|size"
  std::string Fields() {
    return Field(field::kLinkPath).Text() + "|" + Field(field::kReference).Text() + "|" +
           Field(field::kFriendlyName).Text() + "|" + Field(field::kSizeKb).Text();
  }
  void ExpectLine(int number) {
    const std::string file = std::to_string(number) + ".zip";
    EXPECT_EQ(Fields(), "http://x/" + file + "|" + file + "||");
    EXPECT_EQ(t.P().state.CurrentScreen, screen::kManageLinks);
    EXPECT_EQ(Form().Focused(), &Field(field::kFriendlyName));
    EXPECT_TRUE(Waiting());
  }

  test::MonitoredProgram t;
};

TEST_F(ImportQueueTest, BringsTheCheckedLinesOneByOne) {
  EXPECT_FALSE(Waiting());
  Field(field::kSizeKb).SetText("12");
  UseChecked();
  EXPECT_EQ(Form().Label2[action::kPending].Caption(), "");
  ExpectLine(1);
  Field(field::kSizeKb).SetText("9");
  Add("one");
  EXPECT_EQ(t.Record("01"), "9,one,1.zip,http://x/1.zip");  // the first append overwrites
  ExpectLine(3);
  UseChecked();  // from the first line again
  ExpectLine(1);
  Add("one");
  Add("three");
  EXPECT_FALSE(Waiting());
  EXPECT_EQ(Fields(), "http://x/3.zip|3.zip|three|");
  Add("again");  // on its own
  EXPECT_EQ(Fields(), "http://x/3.zip|3.zip|again|");
}

TEST_F(ImportQueueTest, ClearsTheFieldsAtLinesThatAreNotChecked) {
  for (const bool first : {true, false}) {
    StartWithLines();
    Import({first, false, false});
    UseChecked();
    if (first) {
      ExpectLine(1);
      Add("one");
    }
    EXPECT_EQ(Fields(), "|||");
    EXPECT_FALSE(Waiting());
    EXPECT_EQ(t.P().state.CurrentScreen, first ? screen::kManageLinks : screen::kImportLinks);
    EXPECT_EQ(Field(field::kAccount).Text(), "mysite");
  }
}

TEST_F(ImportQueueTest, GoesOnWhenWhatWasSubmittedIsDone) {
  const test::Table<const char*, bool> cases = {
      {"<P>F Exists\n", true}, {"<P>L Exists\n", true}, {"<P>refused: no\n", false}, {"", false}};
  for (const auto& [reply, afterAdd] : cases) {
    for (const std::size_t submitted : {action::kAdd, action::kRemove}) {
      SCOPED_TRACE(testing::Message() << submitted << reply);
      StartWithLines();
      UseChecked();
      Submit(submitted, "");  // without a name
      EXPECT_EQ(Fields(), "http://x/1.zip|1.zip||");
      EXPECT_TRUE(Waiting());
      t.server.Answer("/cgi-bin/", reply);
      Submit(submitted, "one");
      const bool done = afterAdd || submitted == action::kRemove;
      EXPECT_EQ(Fields(), done ? "http://x/3.zip|3.zip||" : "http://x/1.zip|1.zip|one|");
      EXPECT_TRUE(Waiting());
    }
  }
}

TEST_F(ImportQueueTest, KeepsWaitingThroughOtherThings) {
  UseChecked();
  Choose(action::kReset);
  EXPECT_EQ(Fields(), "http://x/|||");
  for (std::int16_t shown = 0; shown < 9; ++shown) {
    t.P().screens.ShowScreen(shown);
  }
  Dispatch([this] { Form().Command1[1].Click(); });  // nothing is pending
  Dispatch([this] { Form().mnuManage.Click(); });
  t.Refresh();
  EXPECT_TRUE(Waiting());
  t.server.Hold(kAdd);
  const std::size_t before = t.server.Requests().size();
  t.DuringRequest(before + 2, [this] { Choose(action::kImport); });  // refused
  Add("one");
  EXPECT_EQ(t.server.Requests().size(), before + 2);
  ExpectLine(3);
}

TEST_F(ImportQueueTest, EndsWithWhatTakesItsPlace) {
  const std::function<void()> ends[] = {
      [this] {
        Import({true, true, true});
      },
      [this] { t.P().savedData.ConfirmMisconfigurationReset(Confirm::Silently); },
      [this] { t.P().configurationImport.ImportConfiguration(); }, [this] { t.P().Quit(); }};
  for (const auto& end : ends) {
    StartWithLines();
    UseChecked();
    EXPECT_TRUE(Waiting());
    Dispatch(end);
    EXPECT_FALSE(Waiting());
  }
}

}  // namespace
}  // namespace tallyo
