#include "ui/manage_links.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/monitored_program.h"
#include "tests/support/table.h"

namespace tallyo {
namespace {

using test::Table;
using testing::ElementsAre;
using testing::IsEmpty;

class ManageLinksTest : public testing::Test {
 protected:
  void StartWith(std::initializer_list<std::string> links) {
    program.Store().DeleteKey(Hive::LocalMachine, names::MonitorFilesKey);
    program.GiveAccount();
    program.GiveLinks(links);
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

  test::MonitoredProgram program;
};

TEST_F(ManageLinksTest, OpeningVerifiesTheAccountAndGoesToThePath) {
  StartWith({});
  program.P().screens.ShowScreen(screen::kPreferences);
  program.Form().mnuManage.Click();
  EXPECT_EQ(program.P().state.CurrentScreen, screen::kManageLinks);
  EXPECT_THAT(program.server.Requests(), ElementsAre("GET /Tallyo/accounts/mysite.txt HTTP/1.1"));
  EXPECT_EQ(program.Form().Focused(), &Field(field::kLinkPath));
}

TEST_F(ManageLinksTest, EnteringAFieldProposesTheDefaultUrl) {
  const Table<const char*, const char*, const char*> cases = {
      {"", "http://d/", "http://d/"}, {"http://p/", "http://d/", "http://p/"}, {"", "", ""}};
  for (const auto& [path, defaultUrl, pathThen] : cases) {
    SCOPED_TRACE(testing::Message() << path << " / " << defaultUrl);
    Start();
    Field(field::kLinkPath).SetText(path);
    program.Form().Text3.SetText(defaultUrl);
    Field(field::kCompany).SetText("Acme");
    program.Form().SetFocus(Field(field::kCompany));
    EXPECT_EQ(Field(field::kLinkPath).Text(), pathThen);
    const bool hasPath = *pathThen != '\0';
    EXPECT_EQ(program.Form().mnuScrnImport.Enabled(), hasPath);
    EXPECT_EQ(Action(action::kImport).Enabled(), hasPath);
    EXPECT_EQ(Field(field::kCompany).Caret(), 4U);
  }
  Field(field::kLinkPath).SetText("x");
  program.Form().SetFocus(Field(field::kAccount));
  EXPECT_TRUE(Action(action::kImport).Enabled());
}

TEST_F(ManageLinksTest, LeavingThePathProposesTheReferenceAndResetKeepsItsFolder) {
  const Table<const char*, const char*, const char*> cases = {
      {"http://files/pub/setup.exe", "setup.exe", "http://files/pub/"},
      {"http://files/pub/", "", "http://files/pub/"},
      {"setup.exe", "typed", "setup.exe"},
      {"", "typed", "http://default/"}};
  const std::size_t emptied[] = {field::kReference, field::kFriendlyName, field::kSizeKb};
  StartWith({"A", "B"});
  for (const auto& [path, reference, pathThen] : cases) {
    SCOPED_TRACE(path);
    program.Form().SetFocus(Field(field::kLinkPath));
    Field(field::kLinkPath).SetText(path);
    for (const std::size_t i : emptied) {
      Field(i).SetText("typed");
    }
    program.Form().Text3.SetText("");
    program.Form().SetFocus(Field(field::kReference));
    EXPECT_EQ(Field(field::kReference).Text(), reference);
    program.Form().Text3.SetText("http://default/page");
    program.Form().Combo1.SetText("A");
    Action(action::kPending).SetCaption("ADD");
    Action(action::kReset).Click();
    EXPECT_EQ(Field(field::kLinkPath).Text(), pathThen);
    for (const std::size_t i : emptied) {
      EXPECT_EQ(Field(i).Text(), "");
    }
    EXPECT_EQ(Field(field::kAccount).Text(), "mysite");
    EXPECT_EQ(Pending() + program.Form().Combo1.Text(), "");
    EXPECT_EQ(program.Form().Combo1.Count(), 2);
    EXPECT_EQ(program.Form().Label8.Caption(), "Form reseted");
  }
}

TEST_F(ManageLinksTest, ThePointerShowsWhatIsAvailableAndAClickHeedsIt) {
  StartWith({"A"});
  const Table<const char*, const char*, std::size_t, int, int> cases = {
      {"Normal", "http://f/ab", action::kImport, kRed, kBlack},   // 11 bytes
      {"Normal", "http://f/abc", action::kImport, kGreen, kRed},  // 12 bytes
      {"Normal", "HTTP://files/abc", action::kImport, kRed, kBlack},
      {"Account Suspended", "x/?u=http://f", action::kImport, kGreen, kRed},
      {"Unknown", "", action::kAdd, kGreen, kBlack},
      {"Account Suspended", "", action::kAdd, kRed, kBlack},
      {"Account Suspended", "", action::kRemove, kRed, kBlack},
      {"Account Suspended", "", action::kReset, kGreen, kRed}};
  for (const auto& [status, path, label, back, text] : cases) {
    SCOPED_TRACE(testing::Message() << status << " " << path << " " << label);
    Status(status);
    Field(field::kLinkPath).SetText(path);
    Action(label).MouseMove();
    EXPECT_EQ(Action(label).BackColor(), back);
    EXPECT_EQ(Action(label).TextColor(), text);
    if (back == kRed) {
      program.Form().Combo1.SetText("A");
      Action(label).Click();
      EXPECT_EQ(Pending(), "");
    }
    program.Form().Picture1[1].MouseMove();
    EXPECT_EQ(Action(label).BackColor(), back);
    program.Form().Picture1[0].MouseMove();
    EXPECT_EQ(Action(label).BackColor(), kWhite);
    EXPECT_EQ(Action(label).TextColor(), kBlack);
  }
}

TEST_F(ManageLinksTest, ThePointerAsksFirstWhetherThereIsAnAccount) {
  Start();
  for (const std::size_t label : {action::kImport, action::kAdd, action::kRemove, action::kReset}) {
    Status("Account Suspended");
    program.Form().mnuViewStats.SetEnabled(true);
    Action(label).MouseMove();
    EXPECT_EQ(Action(label).BackColor(), label == action::kImport ? kRed : kGreen) << label;
    EXPECT_EQ(program.Detail(detail::kAccountStatus), "No account set") << label;
    EXPECT_FALSE(program.Form().mnuViewStats.Enabled()) << label;
  }
  EXPECT_THAT(program.Boxes().Texts(), IsEmpty());
}

TEST_F(ManageLinksTest, SubmitIsOfferedWhereTheServiceAllows) {
  const Table<int, const char*, bool, bool> cases = {
      {5, "01/15/2027", true, true},
      {2, "01/15/2027", false, true},  // no slots left
      {1, "01/15/2027", true, true},   // more links than slots
      {0, "01/15/2027", false, false}};
  for (const auto& [max, exp, canAdd, canRemove] : cases) {
    SCOPED_TRACE(testing::Message() << max << " " << exp);
    for (const bool add : {true, false}) {
      StartWith({"A", "B"});
      program.GiveAccount(max, exp);
      Action(action::kRemove).Click();
      EXPECT_EQ(Pending(), "") << "no link is chosen";
      program.Form().Combo1.SetText("A");
      Action(add ? action::kAdd : action::kRemove).Click();
      EXPECT_EQ(Pending(), add ? "ADD" : "REMOVE");
      EXPECT_EQ(SubmitButton().Enabled(), add ? canAdd : canRemove);
      EXPECT_THAT(program.Boxes().Texts(), IsEmpty());
    }
  }
}

TEST_F(ManageLinksTest, SaysThatItSucceededWhateverTheServiceAnswered) {
  const std::string added = "Operation succesful - My Setup Added";
  const std::string removed = "Operation succesful - My Setup Deleted";
  for (const char* reply : {"<P>ok", "<P>F Exists", "<P>refused: no"}) {
    for (const bool add : {true, false}) {
      SCOPED_TRACE(testing::Message() << reply << " " << add);
      StartWith({"A", "B"});
      program.server.Answer("/cgi-bin/", reply);
      program.Form().mnuExportAll.SetEnabled(false);
      program.Form().Combo1.SetText("A");
      Field(field::kFriendlyName).SetText("My Setup");
      Action(add ? action::kAdd : action::kRemove).Click();
      program.Boxes().WhileOpen = [&] {
        EXPECT_EQ(program.Form().Frame.MousePointer(), Pointer::Hourglass);
      };
      SubmitButton().Click();
      EXPECT_EQ(program.Boxes().Texts().back(), add ? added : removed);
      EXPECT_EQ(program.Boxes().Shown().size(),
                add && reply == std::string("<P>F Exists") ? 2U : 1U);
      EXPECT_EQ(program.Boxes().Shown().back().icon, BoxIcon::Information);
      EXPECT_EQ(program.Form().mnuExportAll.Enabled(), add);
      EXPECT_EQ(program.Form().Combo1.Text(), add ? "A" : "");
      EXPECT_EQ(program.Form().Frame.MousePointer(), Pointer::Normal);
    }
  }
}

TEST_F(ManageLinksTest, ASecondSubmitInsideTheFirstIsRefused) {
  StartWith({});
  Field(field::kFriendlyName).SetText("A");
  program.server.Answer("/cgi-bin/", "<P>ok");
  Action(action::kAdd).Click();
  program.server.Hold("/cgi-bin/");
  program.DuringRequest(2, [&] { program.P().Dispatch([&] { SubmitButton().Click(); }); });
  SubmitButton().Click();
  EXPECT_EQ(program.server.Requests().size(), 2U);
  EXPECT_THAT(program.Boxes().Texts(), ElementsAre("Operation succesful - A Added"));
  EXPECT_EQ(program.Record("01"), ",A,,");
}

TEST_F(ManageLinksTest, CancelEndsTheProgramWithoutSavingAnything) {
  StartWith({"A"});
  EXPECT_FALSE(program.P().Dispatch([&] { program.Form().Command1[0].Click(); }));
  EXPECT_TRUE(program.P().Ended());
  program.P().Quit();
  EXPECT_FALSE(program.HasFile("Data/LastRead.dat"));
  EXPECT_EQ(program.Setting(names::kPrevCheck), "");
}

TEST_F(ManageLinksTest, AChosenLinkFillsTheFieldsButTheSize) {
  int number = 0;
  for (const char* record :
       {"1,,r0,http://0", "1,A,rA,http://A", "2,B,rB", "3,C,rC,http://C,more", "4,D,rD,http://D"}) {
    program.SetRecord("0" + std::to_string(++number), record);
  }
  Start();
  Field(field::kSizeKb).SetText("typed");
  const Table<int, const char*> cases = {
      {1, "http://A|rA|A|typed"},
      {2, "http://A|rB|B|typed"},  // the walk kept the path of the record before
      {3, "http://A|rB|B|typed"},  // a record that cannot be read fills nothing
      {0, "http://0|r0||typed"}};
  for (const auto& [item, fields] : cases) {
    program.Form().Combo1.Choose(item);
    EXPECT_EQ(Field(field::kLinkPath).Text() + "|" + Field(field::kReference).Text() + "|" +
                  Field(field::kFriendlyName).Text() + "|" + Field(field::kSizeKb).Text(),
              fields)
        << item;
  }
  program.Form().Combo1.SetText("nobody");
  program.Form().Combo1.Click();
  EXPECT_EQ(Field(field::kLinkPath).Text(), "http://0");
}

}  // namespace
}  // namespace tallyo
