#include "ui/manage_links.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/test_program.h"

namespace tallyo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

class ManageLinksTest : public testing::Test {
 protected:
  void StartWithLinks(int count, int max = 10) {
    program.GiveAccount(max);
    const std::string names = "ABC";
    for (int i = 0; i < count; ++i) {
      const std::string name = names.substr(static_cast<std::size_t>(i), 1);
      program.SetRecord("0" + std::to_string(i + 1), "1," + name + ",r" + name + ",p" + name);
    }
    Start();
  }
  void Start() {
    program.Start();
    program.P().screens.ShowScreen(screen::kManageLinks);
  }
  TextBox& Field(std::size_t index) { return program.Form().Text1[index]; }
  Label& Action(std::size_t index) { return program.Form().Label2[index]; }
  const std::string& Pending() { return Action(action::kPending).Caption(); }
  Button& SubmitButton() { return program.Form().Command1[1]; }
  void Status(const std::string& text) {
    program.Form().ListView3.SetValue(detail::kAccountStatus, 1, text);
  }
  [[nodiscard]] int Requests(std::string_view part) {
    return static_cast<int>(std::ranges::count_if(
        program.server.Requests(),
        [&](const std::string& line) { return line.find(part) != std::string::npos; }));
  }

  test::TestProgram program;
};

TEST_F(ManageLinksTest, OpeningVerifiesTheAccountAndGoesToThePath) {
  StartWithLinks(0);
  program.P().screens.ShowScreen(screen::kPreferences);
  program.Form().mnuManage.Click();
  EXPECT_EQ(program.P().state.CurrentScreen, screen::kManageLinks);
  EXPECT_EQ(Requests("/accounts/mysite.txt"), 1);
  EXPECT_EQ(program.Form().Focused(), &Field(field::kLinkPath));
}

TEST_F(ManageLinksTest, EnteringAFieldProposesTheDefaultUrl) {
  const struct {
    const char* path;
    const char* defaultUrl;
    const char* pathThen;
    bool canImport;
  } cases[] = {{"", "http://d/", "http://d/", true},
               {"http://p/", "http://d/", "http://p/", true},
               {"", "", "", false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.path << " / " << c.defaultUrl);
    Start();
    Field(field::kLinkPath).SetText(c.path);
    program.Form().Text3.SetText(c.defaultUrl);
    Field(field::kCompany).SetText("Acme");
    program.Form().SetFocus(Field(field::kCompany));
    EXPECT_EQ(Field(field::kLinkPath).Text(), c.pathThen);
    EXPECT_EQ(program.Form().mnuScrnImport.Enabled(), c.canImport);
    EXPECT_EQ(Action(action::kImport).Enabled(), c.canImport);
    EXPECT_EQ(Field(field::kCompany).Caret(), 4U);
  }
  Field(field::kLinkPath).SetText("x");
  program.Form().SetFocus(Field(field::kAccount));
  EXPECT_TRUE(Action(action::kImport).Enabled());
}

TEST_F(ManageLinksTest, LeavingThePathProposesTheReference) {
  const struct {
    const char* path;
    const char* reference;
  } cases[] = {{"http://files/pub/setup.exe", "setup.exe"},
               {"http://files/pub/", ""},
               {"setup.exe", "typed"},
               {"/a", "a"}};
  Start();
  for (const auto& c : cases) {
    Field(field::kReference).SetText("typed");
    program.Form().SetFocus(Field(field::kLinkPath));
    Field(field::kLinkPath).SetText(c.path);
    program.Form().SetFocus(Field(field::kReference));
    EXPECT_EQ(Field(field::kReference).Text(), c.reference) << c.path;
  }
  Field(field::kReference).SetText("mine");
  program.Form().SetFocus(Field(field::kFriendlyName));
  EXPECT_EQ(Field(field::kReference).Text(), "mine");
}

TEST_F(ManageLinksTest, ResetKeepsTheFolderOfThePath) {
  const struct {
    const char* path;
    const char* pathThen;
  } cases[] = {{"http://files/pub/setup.exe", "http://files/pub/"},
               {"http://files/pub/", "http://files/pub/"},
               {"setup.exe", "setup.exe"},
               {"", "http://default/"}};
  for (const auto& c : cases) {
    StartWithLinks(2);
    program.Form().Text3.SetText("http://default/page");
    Field(field::kLinkPath).SetText(c.path);
    for (const std::size_t i : {field::kReference, field::kFriendlyName, field::kSizeKb}) {
      Field(i).SetText("text");
    }
    program.Form().Combo1.SetText("A");
    Action(action::kPending).SetCaption("ADD");
    Action(action::kReset).Click();
    EXPECT_EQ(Field(field::kLinkPath).Text(), c.pathThen);
    for (const std::size_t i : {field::kReference, field::kFriendlyName, field::kSizeKb}) {
      EXPECT_EQ(Field(i).Text(), "");
    }
    EXPECT_EQ(Field(field::kAccount).Text(), "mysite");
    EXPECT_EQ(Pending(), "");
    EXPECT_EQ(program.Form().Combo1.Text(), "");
    EXPECT_EQ(program.Form().Combo1.Count(), 2);
    EXPECT_EQ(program.Form().Label8.Caption(), "Form reseted");
  }
}

TEST_F(ManageLinksTest, ThePointerShowsWhatIsAvailable) {
  StartWithLinks(0);
  const struct {
    const char* status;
    const char* path;
    std::size_t label;
    int back;
    int text;
  } cases[] = {
      {"Normal", "http://f/ab", action::kImport, kRed, kBlack},   // 11 bytes
      {"Normal", "http://f/abc", action::kImport, kGreen, kRed},  // 12 bytes
      {"Normal", "ftp://files/abc", action::kImport, kRed, kBlack},
      {"Normal", "HTTP://files/abc", action::kImport, kRed, kBlack},
      {"Account Suspended", "x/?u=http://f", action::kImport, kGreen, kRed},
      {"Normal", "", action::kAdd, kGreen, kBlack},
      {"Unknown", "", action::kRemove, kGreen, kBlack},
      {"Account Suspended", "", action::kAdd, kRed, kBlack},
      {"Account Suspended", "", action::kRemove, kRed, kBlack},
      {"Account Suspended", "", action::kReset, kGreen, kRed},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.status << " " << c.path << " " << c.label);
    Status(c.status);
    Field(field::kLinkPath).SetText(c.path);
    Action(c.label).MouseMove();
    EXPECT_EQ(Action(c.label).BackColor(), c.back);
    EXPECT_EQ(Action(c.label).TextColor(), c.text);
    program.Form().Picture1[1].MouseMove();
    EXPECT_EQ(Action(c.label).BackColor(), c.back);
    program.Form().Picture1[0].MouseMove();
    EXPECT_EQ(Action(c.label).BackColor(), kWhite);
    EXPECT_EQ(Action(c.label).TextColor(), kBlack);
  }
}

TEST_F(ManageLinksTest, ThePointerAsksFirstWhetherThereIsAnAccount) {
  Start();
  for (const std::size_t label : {action::kImport, action::kAdd, action::kRemove, action::kReset}) {
    Status("Account Suspended");
    program.Form().mnuViewStats.SetEnabled(true);
    Action(label).MouseMove();
    EXPECT_EQ(Action(label).BackColor(), label == action::kImport ? kRed : kGreen) << label;
    EXPECT_EQ(program.Form().ListView3.Value(9, 1), "No account set") << label;
    EXPECT_FALSE(program.Form().mnuViewStats.Enabled()) << label;
  }
  EXPECT_THAT(program.Boxes().Texts(), IsEmpty());
}

TEST_F(ManageLinksTest, IgnoresClicksOnWhatIsUnavailable) {
  StartWithLinks(1);
  program.Form().Combo1.SetText("A");
  Status("Account Suspended");
  for (const std::size_t label : {action::kImport, action::kAdd, action::kRemove}) {
    Action(label).MouseMove();
    Action(label).Click();
    EXPECT_EQ(Pending(), "") << label;
  }
}

TEST_F(ManageLinksTest, RemovingNeedsAChosenLink) {
  StartWithLinks(1);
  Action(action::kRemove).Click();
  EXPECT_EQ(Pending(), "");
  EXPECT_THAT(program.server.Requests(), IsEmpty());
  program.Form().Combo1.SetText("A");
  Action(action::kRemove).Click();
  EXPECT_EQ(Pending(), "REMOVE");
  EXPECT_TRUE(SubmitButton().Enabled());
}

TEST_F(ManageLinksTest, SubmitIsOfferedWhereTheServiceAllows) {
  const struct {
    const char* name;
    int max;
    const char* exp;
    bool add;
    bool remove;
  } cases[] = {{"slots left", 5, "01/15/2027", true, true},
               {"no slots left", 2, "01/15/2027", false, true},
               {"more links than slots", 1, "01/15/2027", true, true},
               {"no slots at all", 0, "01/15/2027", false, false},
               {"expired", 5, "01/15/2026", false, false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    for (const bool add : {true, false}) {
      StartWithLinks(2);
      program.GiveAccount(c.max, c.exp);
      program.Form().Combo1.SetText("A");
      Action(add ? action::kAdd : action::kRemove).Click();
      EXPECT_EQ(Pending(), add ? "ADD" : "REMOVE");
      EXPECT_EQ(SubmitButton().Enabled(), add ? c.add : c.remove);
      EXPECT_THAT(program.Boxes().Texts(), IsEmpty());
    }
  }
}

TEST_F(ManageLinksTest, SaysThatItSucceededWhateverTheServiceAnswered) {
  const struct {
    const char* reply;
    Texts added;
    Texts removed;
  } cases[] = {
      {"<P>ok",
       {"Operation succesful - My Setup Added"},
       {"Operation succesful - My Setup Deleted"}},
      {"<P>F Exists",
       {"Entry already existed on the server", "Operation succesful - My Setup Added"},
       {"Operation succesful - My Setup Deleted"}},
      {"<P>refused: no",
       {"Operation succesful - My Setup Added"},
       {"Operation succesful - My Setup Deleted"}},
  };
  for (const auto& c : cases) {
    for (const bool add : {true, false}) {
      StartWithLinks(2);
      program.server.Answer("/cgi-bin/", c.reply);
      program.Form().mnuExportAll.SetEnabled(false);
      program.Form().Combo1.SetText("A");
      Field(field::kFriendlyName).SetText("My Setup");
      Action(add ? action::kAdd : action::kRemove).Click();
      program.Boxes().WhileOpen = [&] {
        EXPECT_EQ(program.Form().Frame.MousePointer(), Pointer::Hourglass);
      };
      SubmitButton().Click();
      EXPECT_EQ(program.Boxes().Texts(), add ? c.added : c.removed) << c.reply;
      EXPECT_EQ(program.Boxes().Shown().back().icon, BoxIcon::Information);
      EXPECT_EQ(program.Boxes().Shown().back().buttons, BoxButtons::Ok);
      EXPECT_EQ(program.Form().mnuExportAll.Enabled(), add);
      EXPECT_EQ(program.Form().Combo1.Text(), add ? "A" : "");
      EXPECT_EQ(program.Form().Frame.MousePointer(), Pointer::Normal);
    }
  }
}

TEST_F(ManageLinksTest, RemovesSeveralLinksInARow) {
  StartWithLinks(3);
  program.server.Answer("/cgi-bin/", "<P>ok");
  for (const Texts& left : {Texts{"B", "C"}, Texts{"C"}, Texts{}}) {
    program.Form().Combo1.Choose(0);
    Action(action::kRemove).Click();
    ASSERT_TRUE(SubmitButton().Enabled());
    SubmitButton().Click();
    EXPECT_EQ(program.Form().Combo1.Items(), left);
    EXPECT_FALSE(SubmitButton().Enabled());
  }
  EXPECT_EQ(program.Record("01"), "");
  EXPECT_THAT(program.server.Requests(),
              testing::IsSupersetOf({testing::HasSubstr("fryname=rA&link=pA"),
                                     testing::HasSubstr("fryname=rB&link=pB"),
                                     testing::HasSubstr("fryname=rC&link=pC")}));
}

TEST_F(ManageLinksTest, SubmitWithoutAnActionOnlyTurnsThePointer) {
  for (const char* pending : {"", "IMPORT"}) {
    Start();
    Action(action::kPending).OnChange = {};
    Action(action::kPending).SetCaption(pending);
    SubmitButton().SetEnabled(true);
    std::vector<Pointer> pointers;
    program.Form().Frame.Observe([&] { pointers.push_back(program.Form().Frame.MousePointer()); });
    SubmitButton().Click();
    EXPECT_THAT(pointers, ElementsAre(Pointer::Hourglass, Pointer::Normal));
    EXPECT_THAT(program.server.Requests(), IsEmpty());
    EXPECT_THAT(program.Boxes().Texts(), IsEmpty());
    EXPECT_TRUE(SubmitButton().Enabled());
  }
}

TEST_F(ManageLinksTest, ASecondSubmitInsideTheFirstIsRefused) {
  StartWithLinks(0);
  Field(field::kFriendlyName).SetText("A");
  program.server.Answer("/cgi-bin/", "<P>ok");
  Action(action::kAdd).Click();
  program.server.Hold("/cgi-bin/");
  program.Event = [&] {
    if (Requests("action=add") > 0) {
      program.P().Dispatch([&] { SubmitButton().Click(); });
      program.server.Release();
    }
  };
  SubmitButton().Click();
  EXPECT_EQ(Requests("action=add"), 1);
  EXPECT_THAT(program.Boxes().Texts(), ElementsAre("Operation succesful - A Added"));
  EXPECT_EQ(program.Record("01"), ",A,,");
}

TEST_F(ManageLinksTest, CancelEndsTheProgramWithoutSavingAnything) {
  StartWithLinks(1);
  program.Form().ListView1.SetValue(1, 1, "5");
  EXPECT_FALSE(program.P().Dispatch([&] { program.Form().Command1[0].Click(); }));
  EXPECT_TRUE(program.P().Ended());
  program.P().Quit();
  EXPECT_FALSE(program.HasFile("Data/LastRead.dat"));
  EXPECT_EQ(program.Setting(names::kPrevCheck), "");
}

TEST_F(ManageLinksTest, AChosenLinkFillsTheFieldsButTheSize) {
  program.SetRecord("01", "1,A,rA,http://A");
  program.SetRecord("02", "2,B,rB");
  program.SetRecord("03", "3,C,rC,http://C,more");
  program.SetRecord("04", "4,D,rD,http://D");
  Start();
  Field(field::kSizeKb).SetText("typed");
  const auto chosen = [&](int item) {
    program.Form().Combo1.Choose(item);
    return Field(field::kLinkPath).Text() + "|" + Field(field::kReference).Text() + "|" +
           Field(field::kFriendlyName).Text() + "|" + Field(field::kSizeKb).Text();
  };
  EXPECT_EQ(chosen(0), "http://A|rA|A|typed");
  EXPECT_EQ(chosen(1), "http://A|rB|B|typed");  // the walk kept the path of record 01
  EXPECT_EQ(chosen(2), "http://A|rB|B|typed");
  EXPECT_EQ(chosen(3), "http://A|rB|B|typed");
  Field(field::kLinkPath).SetText("typed");
  program.Form().Combo1.SetText("nobody");
  program.Form().Combo1.Click();
  EXPECT_EQ(Field(field::kLinkPath).Text(), "typed");
}

TEST_F(ManageLinksTest, EveryChoiceStartsWithEmptyFields) {
  program.SetRecord("01", "1,,rA,http://A");
  program.SetRecord("02", "2,B,rB,http://B");
  Start();
  program.Form().Combo1.Choose(1);
  program.Form().Combo1.Choose(0);  // its empty name is found only where nothing was held before
  EXPECT_EQ(Field(field::kReference).Text(), "rA");
  EXPECT_EQ(Field(field::kFriendlyName).Text(), "");
}

}  // namespace
}  // namespace tallyo
