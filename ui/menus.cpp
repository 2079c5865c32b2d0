#include "ui/menus.h"

#include <string>
#include <utility>

namespace tallyo {

Menus::Menus(Targets targets) : to_(std::move(targets)) {
  ConnectFile();
  ConnectOptions();
  ConnectWindow();
  ConnectHelp();
}

void Menus::ConnectFile() {
  MainForm& form = to_.form;
  form.mnuFile.OnClick = [this] { OfferFileItems(); };
  form.mnuSave.OnClick = [this] { to_.account.SaveAccount(); };
  form.mnuExportAll.OnClick = [this] { to_.textScreen.ExportConfiguration(); };
  form.mnuImportAll.OnClick = [this] { to_.configurationImport.ImportConfiguration(); };
  form.mnuPrefs.OnClick = [this] { to_.screens.ShowScreen(screen::kPreferences); };
  form.mnuQuit.OnClick = [this] { to_.quit(); };
}

void Menus::ConnectOptions() {
  MainForm& form = to_.form;
  form.mnuManage.OnClick = [this] { to_.manageLinks.Open(); };
  form.mnuViewStats.OnClick = [this] { to_.refresh.RefreshStatistics(); };
  form.mnuMakeLink.OnClick = [this] { to_.textScreen.MakeCountingLink(); };
  form.mnuExport.OnClick = [this] { to_.textScreen.ExportStatsText(); };
  form.mnuSignup.OnClick = [this] { ShowServicePage("signupinfo.html"); };
  form.mnuUpgrade.OnClick = [this] { ShowServicePage("upgradeinfo.html"); };
}

void Menus::ConnectWindow() {
  MainForm& form = to_.form;
  form.mnuWindDaily.OnClick = [this] { to_.dailyStatus.Open(); };
  form.mnuWindCurrent.OnClick = [this] { to_.screens.ShowScreen(screen::kCurrentStatus); };
  form.mnuScrnImport.OnClick = [this] { to_.screens.ShowScreen(screen::kImportLinks); };
  form.mnuServiceInfo.OnClick = [this] { to_.serviceInfo.ShowServiceInfo(); };
}

void Menus::ConnectHelp() {
  MainForm& form = to_.form;
  form.mnuHelpDoc.OnClick = [this] { to_.shell.Open(to_.state.AppDir / "tlyo.pdf"); };
  form.mnuSupport.OnClick = [this] { ShowServicePage("support.html"); };
  form.mnuAbout.OnClick = [this] { ShowWebPage((to_.state.AppDir / "intro.sht").string()); };
}

// Once links are monitored, neither the account nor the configuration can be changed under them.
// Importing is not offered again by opening the menu.
void Menus::OfferFileItems() {
  MainForm& form = to_.form;
  form.mnuSave.SetEnabled(!form.Text1[field::kCompany].Text().empty() &&
                          !form.Text1[field::kAccount].Text().empty());
  if (form.Combo1.Count() > 0) {
    form.mnuSave.SetEnabled(false);
    form.mnuImportAll.SetEnabled(false);
  }
}

void Menus::ShowWebPage(const std::string& address) {
  to_.screens.ShowScreen(screen::kWebPage);
  to_.form.WB1.Navigate(address);
}

void Menus::ShowServicePage(const std::string& page) {
  ShowWebPage(to_.requests.DocumentAddress(page));
}

}  // namespace tallyo
