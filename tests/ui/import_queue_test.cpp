#include "ui/import_queue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "tests/support/monitored_program.h"

namespace tallyo {
namespace {

constexpr const char* kAdd = "/cgi-bin/Tallyo/devstats.cgi?account=mysitef.txt&action=add";
constexpr const char* kDelete = "/cgi-bin/Tallyo/devstats.cgi?account=mysitef.txt&action=del";

// An import screen with three lines, of which 1 and 3 are checked, beside one monitored link.
class ImportQueueTest : public testing::Test {
 protected:
  ImportQueueTest() { StartWithLines(); }

  void StartWithLines() {
    t.GiveAccount();
    t.server.Answer(kAdd, "<P>ok\n");
    t.server.Answer(kDelete, "<P>ok\n");
    t.server.Answer("/page",
                    "<A HREF=\"http://x/1.zip\"><A HREF=\"http://x/2.zip\">"
                    "<A HREF=\"http://x/3.zip\">");
    t.SetRecord("01", "1,A,rA,pA");
    t.Start();
    t.P().screens.ShowScreen(screen::kManageLinks);
    Field(field::kLinkPath).SetText(t.server.Url("/page"));
    Choose(action::kImport);
    Check({true, false, true});
  }

  MainForm& Form() { return t.Form(); }
  TextBox& Field(std::size_t index) { return Form().Text1[index]; }
  bool Waiting() { return t.P().importQueue.Waiting(); }
  void Dispatch(const std::function<void()>& event) { t.P().Dispatch(event); }

  void Check(const std::vector<bool>& checked) {
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
  // Names the link in the fields and submits it as a new one.
  void Add(const std::string& name) {
    Field(field::kFriendlyName).SetText(name);
    Choose(action::kAdd);
    Dispatch([this] { Form().Command1[1].Click(); });
  }
  // Chooses the monitored link and submits its removal under this name.
  void Remove(const std::string& name) {
    Form().Combo1.SetText("A");
    Field(field::kFriendlyName).SetText(name);
    Choose(action::kRemove);
    Dispatch([this] { Form().Command1[1].Click(); });
  }

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
  Form().Label2[action::kPending].SetCaption("IMPORT");
  Check({true, false, true});
  UseChecked();
  EXPECT_EQ(Form().Label2[action::kPending].Caption(), "");
  ExpectLine(1);
  Field(field::kSizeKb).SetText("9");
  Add("one");
  EXPECT_EQ(t.Record("01"), "9,one,1.zip,http://x/1.zip");  // the first append overwrites
  ExpectLine(3);
  Add("three");
  EXPECT_FALSE(Waiting());
  EXPECT_EQ(t.Record("02"), ",three,3.zip,http://x/3.zip");
  EXPECT_EQ(Fields(), "http://x/3.zip|3.zip|three|");
  Add("again");  // on its own
  EXPECT_EQ(Fields(), "http://x/3.zip|3.zip|again|");
}

TEST_F(ImportQueueTest, ClearsTheFieldsAtLinesThatAreNotChecked) {
  for (const bool first : {true, false}) {
    StartWithLines();
    Check({first, false, false});
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
  const struct {
    const char* reply;
    bool afterAdd;
  } cases[] = {{"<P>ok\n", true},
               {"<P>F Exists\n", true},
               {"<P>L Exists\n", true},
               {"<P>refused: no\n", false},
               {"", false},
               {"OK\n", false}};
  for (const auto& c : cases) {
    for (const bool add : {true, false}) {
      SCOPED_TRACE(testing::Message() << (add ? "ADD " : "REMOVE ") << c.reply);
      StartWithLines();
      t.server.Answer(kAdd, c.reply);
      t.server.Answer(kDelete, c.reply);
      UseChecked();
      add ? Add("one") : Remove("one");
      if (add && !c.afterAdd) {
        EXPECT_EQ(Fields(), "http://x/1.zip|1.zip|one|");
        EXPECT_TRUE(Waiting());
        t.server.Answer(kAdd, "<P>ok\n");
        Add("one");
      }
      EXPECT_EQ(Fields(), "http://x/3.zip|3.zip||");
      EXPECT_TRUE(Waiting());
    }
  }
}

TEST_F(ImportQueueTest, GoesOnAfterARemovalThatNobodyAnswers) {
  UseChecked();
  Form().Combo1.SetText("A");
  Field(field::kFriendlyName).SetText("one");
  Choose(action::kRemove);
  t.server.RefuseConnections();
  Dispatch([this] { Form().Command1[1].Click(); });
  ExpectLine(3);
}

TEST_F(ImportQueueTest, NeedsAFriendlyName) {
  UseChecked();
  Add("");
  EXPECT_EQ(Fields(), "http://x/1.zip|1.zip||");
  EXPECT_TRUE(Waiting());
  Remove("");
  EXPECT_EQ(Fields(), "http://x/1.zip|1.zip||");
  EXPECT_TRUE(Waiting());
  Add("one");
  ExpectLine(3);
}

TEST_F(ImportQueueTest, KeepsWaitingThroughOtherThings) {
  UseChecked();
  Choose(action::kReset);
  EXPECT_EQ(Fields(), "http://x/|||");
  for (int shown = 0; shown < 9; ++shown) {
    Dispatch([&] { t.P().screens.ShowScreen(static_cast<std::int16_t>(shown)); });
  }
  Dispatch([this] { Form().Command1[1].Click(); });  // nothing is pending
  Dispatch([this] { Form().mnuManage.Click(); });
  t.Refresh();
  EXPECT_TRUE(Waiting());
  Add("one");
  ExpectLine(3);
}

TEST_F(ImportQueueTest, EndsWithWhatTakesItsPlace) {
  UseChecked();
  Add("one");
  ExpectLine(3);
  UseChecked();
  ExpectLine(1);

  Field(field::kLinkPath).SetText(t.server.Url("/page"));
  Choose(action::kImport);
  EXPECT_FALSE(Waiting());
  Check({true, true, true});
  Add("two");
  EXPECT_EQ(Field(field::kFriendlyName).Text(), "two") << "no line came";

  const std::function<void()> ends[] = {
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

TEST_F(ImportQueueTest, KeepsWaitingWhereAnotherImportIsRefused) {
  UseChecked();
  t.server.Hold(kAdd);
  const std::size_t before = t.server.Requests().size();
  t.DuringRequest(before + 2, [this] { Choose(action::kImport); });
  Add("one");
  EXPECT_EQ(t.server.Requests().size(), before + 2);
  ExpectLine(3);
}

TEST_F(ImportQueueTest, LeavesForeignTextsAsTheyAre) {
  const std::string link = "http://x/<b>\"&\xF0\x9F\x98\x80\xE9\x01\x7F" + std::string(4000, 'l');
  Form().List1.Clear();
  Form().List1.AddLine(link);
  Form().List1.Check(0, true);
  UseChecked();
  EXPECT_EQ(Fields(), link + "|" + link.substr(9) + "||");
}

}  // namespace
}  // namespace tallyo
