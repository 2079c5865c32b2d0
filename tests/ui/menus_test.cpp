#include "ui/menus.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/table.h"
#include "tests/support/test_program.h"

namespace tallyo {
namespace {

using testing::ElementsAre;
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

TEST_F(MenusTest, ItemsShowTheirScreensAndPages) {
  const std::string intro = (program.folder.Path() / "intro.sht").string();
  const test::Table<MenuItem MainForm::*, std::size_t, std::string> cases = {
      {&MainForm::mnuManage, 0, intro},
      {&MainForm::mnuSignup, 7, program.server.Url("/Tallyo/signupinfo.html")},
      {&MainForm::mnuAbout, 7, intro},
      {&MainForm::mnuPrefs, 2, intro},
      {&MainForm::mnuUpgrade, 7, program.server.Url("/Tallyo/upgradeinfo.html")},
      {&MainForm::mnuAbout, 7, intro},
      {&MainForm::mnuWindDaily, 3, intro},
      {&MainForm::mnuWindCurrent, 1, intro},
      {&MainForm::mnuScrnImport, 4, intro},
      {&MainForm::mnuServiceInfo, 5, intro},
      {&MainForm::mnuMakeLink, 8, intro},
      {&MainForm::mnuPrefs, 2, intro},
      {&MainForm::mnuExport, 8, intro},
      {&MainForm::mnuSupport, 7, program.server.Url("/Tallyo/support.html")}};
  program.Start();
  const MainForm& form = program.Form();
  for (const auto& [chosen, panel, page] : cases) {
    const MenuItem& item = form.*chosen;
    EXPECT_TRUE(program.P().Dispatch([&] { item.Click(); }));
    for (std::size_t i = 0; i < form.Picture1.size(); ++i) {
      EXPECT_EQ(form.Picture1[i].Visible(), i == panel) << item.Name() << i;
    }
    for (const Control* control :
         std::initializer_list<const Control*>{&form.Combo2, &form.Combo3, &form.Label5[2]}) {
      EXPECT_EQ(control->Visible(), panel == 3) << item.Name();
    }
    EXPECT_EQ(form.WB1.Address(), page) << item.Name();
  }
  EXPECT_THAT(program.server.Requests(), IsEmpty());  // pages are the viewer's to load
  form.mnuHelpDoc.Click();
  EXPECT_THAT(program.Opened(), ElementsAre(program.folder.Path() / "tlyo.pdf"));
}

}  // namespace
}  // namespace tallyo
