#include "ui/menus.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/test_program.h"

namespace tallyo {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

class MenusTest : public testing::Test {
 protected:
  test::TestProgram program;
};

TEST_F(MenusTest, OffersTheAccountAndTheImportOnlyBeforeAnyLink) {
  const struct {
    const char* company;
    const char* account;
    int links;
    bool save;
    bool import;
  } cases[] = {{"Acme", "mysite", 0, true, true},
               {"", "mysite", 0, false, true},
               {"Acme", "", 0, false, true},
               {"Acme", "mysite", 1, false, false},
               {"", "", 1, false, false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.company << "/" << c.account << "/" << c.links);
    program.Start();
    MainForm& form = program.Form();
    form.Text1[field::kCompany].SetText(c.company);
    form.Text1[field::kAccount].SetText(c.account);
    for (int i = 0; i < c.links; ++i) {
      form.Combo1.AddItem("A");
    }
    form.mnuFile.Click();
    EXPECT_EQ(form.mnuSave.Enabled(), c.save);
    EXPECT_EQ(form.mnuImportAll.Enabled(), c.import);
  }
}

TEST_F(MenusTest, NeverOffersTheImportAgain) {
  program.Start();
  MainForm& form = program.Form();
  form.Text1[field::kCompany].SetText("Acme");
  form.Text1[field::kAccount].SetText("mysite");
  form.Combo1.AddItem("A");
  form.mnuFile.Click();
  form.Combo1.Clear();
  form.mnuFile.Click();
  EXPECT_TRUE(form.mnuSave.Enabled());
  EXPECT_FALSE(form.mnuImportAll.Enabled());
}

TEST_F(MenusTest, EveryItemShowsItsScreen) {
  const std::string intro = (program.folder.Path() / "intro.sht").string();
  const struct {
    MenuItem MainForm::*item;
    int screen;
    std::string page;
  } cases[] = {
      {&MainForm::mnuManage, 0, intro},
      {&MainForm::mnuSignup, 7, program.server.Url("/Tallyo/signupinfo.html")},
      {&MainForm::mnuPrefs, 2, intro},
      {&MainForm::mnuUpgrade, 7, program.server.Url("/Tallyo/upgradeinfo.html")},
      {&MainForm::mnuWindDaily, 3, intro},
      {&MainForm::mnuWindCurrent, 1, intro},
      {&MainForm::mnuSupport, 7, program.server.Url("/Tallyo/support.html")},
      {&MainForm::mnuScrnImport, 4, intro},
      {&MainForm::mnuServiceInfo, 5, intro},
      {&MainForm::mnuAbout, 7, intro},
  };
  for (const auto& c : cases) {
    program.Start();
    if (c.screen == 7) {
      program.P().screens.ShowScreen(screen::kPreferences);
      program.Form().WB1.Navigate("elsewhere");
    }
    MenuItem& item = program.Form().*c.item;
    EXPECT_TRUE(program.P().Dispatch([&] { item.Click(); }));
    EXPECT_EQ(program.P().state.CurrentScreen, c.screen) << item.Name();
    EXPECT_TRUE(program.Form().Picture1[static_cast<std::size_t>(c.screen)].Visible());
    EXPECT_EQ(program.Form().WB1.Address(), c.page) << item.Name();
  }
  EXPECT_THAT(program.server.Requests(), IsEmpty());  // pages are the viewer's to load
}

TEST_F(MenusTest, RefreshSaveAndExitDoTheirWork) {
  program.GiveAccount(10, "01/15/2027", false);
  program.Start();
  MainForm& form = program.Form();
  form.Text1[field::kCompany].SetText("Acme");
  form.Text1[field::kAccount].SetText("mysite");
  form.mnuSave.Click();
  EXPECT_EQ(program.Setting(names::kAccount), "mysite");
  form.Combo1.AddItem("A");
  form.mnuViewStats.Click();
  EXPECT_THAT(program.server.Requests().back(), HasSubstr("action=show"));
  form.mnuQuit.Click();
  EXPECT_TRUE(program.P().Ended());
  EXPECT_TRUE(program.HasFile("Data/LastRead.dat"));
}

}  // namespace
}  // namespace tallyo
