#include "form/main_form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tallyo {
namespace {

using testing::ElementsAre;

// One line for each menu and item: its name and caption, "-" for a separator.
std::vector<std::string> MenuLines(const MainForm& form) {
  std::vector<std::string> lines;
  for (const MenuItem* menu : form.MenuBar()) {
    lines.push_back(menu->Name() + "|" + menu->Caption());
    for (const MenuItem* item : menu->Items()) {
      lines.push_back("  " + item->Name() + "|" + (item->IsSeparator() ? "-" : item->Caption()));
    }
  }
  return lines;
}

TEST(MainForm, HasItsMenus) {
  const MainForm form;
  std::vector<std::string> lines = MenuLines(form);
  lines.pop_back();  // the title that shows the service
  EXPECT_THAT(
      lines,
      ElementsAre("mnuFile|&File", "  mnuSave|Save Account", "  mnuExportAll|Export Configuration",
                  "  mnuImportAll|Import Configuration", "  sep6|-", "  mnuPrefs|Preferences",
                  "  sep1|-", "  mnuQuit|E&xit", "mnuOpts|&Options", "  mnuManage|Manage Links",
                  "  mnuMakeLink|Create Tallyo Link", "  mnuViewStats|Refresh Stats",
                  "  mnuExport|Format for export", "  sep5|-", "  mnuSignup|Sign-Up",
                  "  mnuUpgrade|Upgrade", "mnuWindow|&Window", "  mnuWindDaily|Daily Status",
                  "  mnuWindCurrent|Current Status", "  mnuScrnImport|Import Links",
                  "  mnuServiceInfo|Service Info", "mnuHelp|&Help", "  mnuHelpDoc|Content",
                  "  mnuSupport|Support", "  mnuAbout|About"));
  EXPECT_EQ(form.MenuBar().back()->Name(), "TmnuDisTitle");
}

TEST(MainForm, StartsWithItsControlsAsDesigned) {
  const MainForm form;
  for (const MenuItem* menu : form.MenuBar()) {
    for (const MenuItem* item : menu->Items()) {
      EXPECT_EQ(item->Enabled(), item->Name() != "mnuExportAll") << item->Name();
    }
  }
  EXPECT_TRUE(form.Command1[0].Enabled());
  EXPECT_FALSE(form.Command1[1].Enabled());
  EXPECT_FALSE(form.Timer1.Enabled());
  EXPECT_EQ(form.Timer1.IntervalMilliseconds(), 500);
  EXPECT_FALSE(form.Label2[5].Visible());
  for (const Label* hidden : {form.Label4.data(), &form.Label4[1], form.Label5.data(),
                              &form.Label5[1], &form.Label5[2]}) {
    EXPECT_FALSE(hidden->Visible());
  }
  EXPECT_FALSE(form.Combo2.Visible());
  EXPECT_FALSE(form.Combo3.Visible());
  EXPECT_EQ(form.Label4[0].Caption() + form.Label4[1].Caption() + form.Label8.Caption(), "");
  EXPECT_EQ(form.Label5[0].Caption(), "Service through:");
  EXPECT_EQ(form.Label5[1].Caption(), "Available Slots:");
  EXPECT_EQ(form.Label5[2].Caption(), "Select Item to examine");
  EXPECT_THAT(form.Combo3.Items(), ElementsAre("Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul",
                                               "Aug", "Sep", "Oct", "Nov", "Dec"));
  const char* const captions[] = {"Autoload",
                                  "Save Logs",
                                  "Check for updates",
                                  "Start Minimized",
                                  "Show available slots in all screens",
                                  "Show due date in all screens"};
  for (std::size_t i = 0; i < form.Check1.size(); ++i) {
    EXPECT_EQ(form.Check1[i].Caption(), captions[i]);
    EXPECT_EQ(form.Check1[i].Enabled(), i != 1) << captions[i];
    EXPECT_EQ(form.Check1[i].Value(), 0) << captions[i];
  }
}

class Focus : public testing::Test {
 protected:
  Focus() {
    form.Picture1[screen::kManageLinks].SetVisible(true);
    Note(form.Text1[0], "company");
    Note(form.Text1[1], "account");
    Note(form.Text2, "interval");
  }
  void Note(TextBox& box, const std::string& name) {
    box.OnGotFocus = [this, name] { events.push_back(name + " got"); };
    box.OnLostFocus = [this, name] { events.push_back(name + " lost"); };
  }

  MainForm form;
  std::vector<std::string> events;
};

TEST_F(Focus, LeavesOneFieldBeforeItEntersTheNext) {
  form.SetFocus(form.Text1[0]);
  form.SetFocus(form.Text1[1]);
  EXPECT_THAT(events, ElementsAre("company got", "company lost", "account got"));
  EXPECT_EQ(form.Focused(), &form.Text1[1]);
}

TEST_F(Focus, StaysWhereItIsAskedForAgain) {
  form.SetFocus(form.Text1[0]);
  form.SetFocus(form.Text1[0]);
  EXPECT_THAT(events, ElementsAre("company got"));
}

TEST_F(Focus, DoesNotMoveToAHiddenScreen) {
  form.SetFocus(form.Text1[0]);
  form.SetFocus(form.Text2);
  EXPECT_THAT(events, ElementsAre("company got"));
  EXPECT_EQ(form.Focused(), form.Text1.data());
}

}  // namespace
}  // namespace tallyo
