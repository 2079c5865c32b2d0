#include "form/main_form.h"

#include <string>
#include <utility>

#include "text/dates.h"

namespace tallyo {
namespace {

// Sizes of the panels in twips.
constexpr std::array<std::pair<int, int>, screen::kCount> kPanelSizes = {{{7860, 3600},
                                                                          {10500, 5100},
                                                                          {7860, 4200},
                                                                          {19500, 8100},
                                                                          {8700, 4800},
                                                                          {7860, 4800},
                                                                          {7860, 3600},
                                                                          {10500, 7200},
                                                                          {10500, 5400}}};

template <typename AnyControl>
void Stand(AnyControl& control, int screen, const Place& place, std::string caption) {
  control.SetScreen(screen);
  control.Put(place);
  control.SetCaption(std::move(caption));
}

}  // namespace

MainForm::MainForm() {
  for (std::size_t i = 0; i < screen::kCount; ++i) {
    Picture1[i].SetVisible(false);
    Picture1[i].Put({0, 0, kPanelSizes[i].first, kPanelSizes[i].second});
  }
  Frame.SetVisible(false);
  Timer1.SetEnabled(false);
  DescribeMenus();
  DescribeManageLinks();
  DescribeLists();
  DescribePreferences();
  DescribeTheRest();
}

void MainForm::SetFocus(TextBox& box) {
  const int screen = box.Screen();
  const bool hidden = screen >= 0 && !Picture1.at(static_cast<std::size_t>(screen)).Visible();
  if (&box == focused_ || hidden) {
    return;
  }
  TextBox* const left = std::exchange(focused_, &box);
  if (left != nullptr) {
    left->LostFocus();
  }
  box.GotFocus();
}

void MainForm::LeaveFocus() {
  if (TextBox* const left = std::exchange(focused_, nullptr)) {
    left->LostFocus();
  }
}

void MainForm::DescribeMenus() {
  mnuFile.Describe("mnuFile", "&File",
                   {&mnuSave, &mnuExportAll, &mnuImportAll, &sep6, &mnuPrefs, &sep1, &mnuQuit});
  mnuSave.Describe("mnuSave", "Save Account");
  mnuExportAll.Describe("mnuExportAll", "Export Configuration");
  mnuExportAll.SetEnabled(false);
  mnuImportAll.Describe("mnuImportAll", "Import Configuration");
  sep6.DescribeSeparator("sep6");
  mnuPrefs.Describe("mnuPrefs", "Preferences");
  sep1.DescribeSeparator("sep1");
  mnuQuit.Describe("mnuQuit", "E&xit");

  mnuOpts.Describe(
      "mnuOpts", "&Options",
      {&mnuManage, &mnuMakeLink, &mnuViewStats, &mnuExport, &sep5, &mnuSignup, &mnuUpgrade});
  mnuManage.Describe("mnuManage", "Manage Links");
  mnuMakeLink.Describe("mnuMakeLink", "Create Tallyo Link");
  mnuViewStats.Describe("mnuViewStats", "Refresh Stats");
  mnuExport.Describe("mnuExport", "Format for export");
  sep5.DescribeSeparator("sep5");
  mnuSignup.Describe("mnuSignup", "Sign-Up");
  mnuUpgrade.Describe("mnuUpgrade", "Upgrade");

  mnuWindow.Describe("mnuWindow", "&Window",
                     {&mnuWindDaily, &mnuWindCurrent, &mnuScrnImport, &mnuServiceInfo});
  mnuWindDaily.Describe("mnuWindDaily", "Daily Status");
  mnuWindCurrent.Describe("mnuWindCurrent", "Current Status");
  mnuScrnImport.Describe("mnuScrnImport", "Import Links");
  mnuServiceInfo.Describe("mnuServiceInfo", "Service Info");

  mnuHelp.Describe("mnuHelp", "&Help", {&mnuHelpDoc, &mnuSupport, &mnuAbout});
  mnuHelpDoc.Describe("mnuHelpDoc", "Content");
  mnuSupport.Describe("mnuSupport", "Support");
  mnuAbout.Describe("mnuAbout", "About");

  TmnuDisTitle.Describe("TmnuDisTitle", std::string(8, ' '));
}

void MainForm::DescribeManageLinks() {
  const int here = screen::kManageLinks;
  Stand(Text1[field::kCompany], here, {240, 405, 3240, 285}, "Company");
  Stand(Text1[field::kAccount], here, {4905, 405, 2520, 285}, "Account");
  Stand(Text1[field::kLinkPath], here, {225, 1530, 4860, 285},
        "Path to file including the file name");
  Stand(Text1[field::kReference], here, {225, 2235, 3495, 285}, "Reference");
  Stand(Text1[field::kFriendlyName], here, {4095, 2235, 3495, 285}, "Friendly Name");
  Stand(Text1[field::kSizeKb], here, {6120, 1545, 1470, 285}, "Filesize (KB)");

  Stand(Label2[action::kImport], here, {375, 915, 1125, 225}, "IMPORT");
  Stand(Label2[action::kAdd], here, {1515, 915, 1125, 225}, "ADD");
  Stand(Label2[action::kRemove], here, {2655, 915, 1125, 225}, "REMOVE");
  Stand(Label2[action::kReset], here, {3800, 915, 1125, 225}, "RESET");
  Stand(Label2[4], here, {5145, 915, 1125, 225}, "Action");
  Stand(Label2[action::kPending], here, {6315, 915, 1125, 225}, "");
  Label2[action::kPending].SetVisible(false);

  Stand(Combo1, here, {255, 2865, 3420, 315}, "Monitored Links");
  Stand(Command1[0], here, {5805, 2835, 1125, 360}, "&Cancel");
  Stand(Command1[1], here, {4515, 2835, 1125, 360}, "&Submit");
  Command1[1].SetEnabled(false);
}

void MainForm::DescribeLists() {
  ListView1.SetScreen(screen::kCurrentStatus);
  for (const char* heading : {"Link", "Counter", "Change", "Path"}) {
    ListView1.AddHeading({heading, 1440});
  }
  ListView2.SetScreen(screen::kDailyStatus);
  ListView3.SetScreen(screen::kServiceInfo);
  for (const char* heading : {"Service Details", ""}) {
    ListView3.AddHeading({heading, 3240});
  }
  for (const std::string_view month : kMonthNames) {
    Combo3.AddItem(std::string(month));
  }
  Combo2.SetVisible(false);
  Combo3.SetVisible(false);
}

void MainForm::DescribePreferences() {
  const std::array captions = {"Autoload",
                               "Save Logs",
                               "Check for updates",
                               "Start Minimized",
                               "Show available slots in all screens",
                               "Show due date in all screens"};
  for (std::size_t i = 0; i < Check1.size(); ++i) {
    Check1[i].SetScreen(screen::kPreferences);
    Check1[i].SetCaption(captions[i]);
  }
  Check1[1].SetEnabled(false);
  Text2.SetScreen(screen::kPreferences);
  Text2.SetCaption("Update Stats");
  Text2.SetText("0.5");
  Text3.SetScreen(screen::kPreferences);
  Text3.SetCaption("Default URL");
}

void MainForm::DescribeTheRest() {
  List1.SetScreen(screen::kImportLinks);
  List1.SetCaption("Links found on imported document. Check mark the ones you want to use");
  Command2.SetScreen(screen::kImportLinks);
  Command2.SetCaption("&Use Checked Links");
  WB1.SetScreen(screen::kWebPage);
  Text4.SetScreen(screen::kText);

  Label5[0].SetCaption("Service through:");
  Label5[1].SetCaption("Available Slots:");
  Label5[2].SetCaption("Select Item to examine");
  for (Label& label : Label4) {
    label.SetVisible(false);
  }
  for (Label& label : Label5) {
    label.SetVisible(false);
  }
}

}  // namespace tallyo
