#include "ui/menus.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/table.h"
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
  const test::Table<const char*, const char*, bool, bool> cases = {{"Acme", "mysite", false, true},
                                                                   {"", "mysite", false, false},
                                                                   {"Acme", "", false, false},
                                                                   {"Acme", "mysite", true, false}};
  program.Start();
  MainForm& form = program.Form();
  for (const auto& [company, account, hasLink, canSave] : cases) {
    form.Text1[field::kCompany].SetText(company);
    form.Text1[field::kAccount].SetText(account);
    if (hasLink) {
      form.Combo1.AddItem("A");
    }
    form.mnuFile.Click();
    EXPECT_EQ(form.mnuSave.Enabled(), canSave) << company << "/" << account;
    EXPECT_EQ(form.mnuImportAll.Enabled(), !hasLink);
  }
  form.Combo1.Clear();
  form.mnuFile.Click();
  EXPECT_TRUE(form.mnuSave.Enabled());
  EXPECT_FALSE(form.mnuImportAll.Enabled()) << "never again";
}

TEST_F(MenusTest, EveryItemShowsItsScreen) {
  const std::string intro = (program.folder.Path() / "intro.sht").string();
  const test::Table<MenuItem MainForm::*, std::size_t, std::string> cases = {
      {&MainForm::mnuManage, 0, intro},
      {&MainForm::mnuSignup, 7, program.server.Url("/Tallyo/signupinfo.html")},
      {&MainForm::mnuPrefs, 2, intro},
      {&MainForm::mnuUpgrade, 7, program.server.Url("/Tallyo/upgradeinfo.html")},
      {&MainForm::mnuWindDaily, 3, intro},
      {&MainForm::mnuWindCurrent, 1, intro},
      {&MainForm::mnuSupport, 7, program.server.Url("/Tallyo/support.html")},
      {&MainForm::mnuScrnImport, 4, intro},
      {&MainForm::mnuServiceInfo, 5, intro},
      {&MainForm::mnuAbout, 7, intro}};
  for (const auto& [chosen, panel, page] : cases) {
    program.Start();
    if (panel == 7) {
      program.P().screens.ShowScreen(screen::kPreferences);
      program.Form().WB1.Navigate("elsewhere");
    }
    MenuItem& item = program.Form().*chosen;
    EXPECT_TRUE(program.P().Dispatch([&] { item.Click(); }));
    EXPECT_TRUE(program.Form().Picture1[panel].Visible()) << item.Name();
    EXPECT_EQ(program.Form().WB1.Address(), page) << item.Name();
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
