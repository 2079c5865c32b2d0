#pragma once

#include <functional>
#include <string>

#include "account/account_entry.h"
#include "account/configuration_import.h"
#include "form/main_form.h"
#include "form/shared_state.h"
#include "platform/shell.h"
#include "stats/service_requests.h"
#include "stats/statistics_refresh.h"
#include "ui/daily_status.h"
#include "ui/manage_links.h"
#include "ui/screens.h"
#include "ui/service_info.h"
#include "ui/text_screen.h"

namespace tallyo {

// What each menu item does, and when the items of the File menu are offered.
class Menus {
 public:
  struct Targets {
    MainForm& form;
    const SharedState& state;
    const ServiceRequests& requests;
    Screens& screens;
    AccountEntry& account;
    ManageLinks& manageLinks;
    StatisticsRefresh& refresh;
    DailyStatus& dailyStatus;
    TextScreen& textScreen;
    ConfigurationImport& configurationImport;
    Shell& shell;
    ServiceInfo& serviceInfo;
    std::function<void()> quit;
  };

  // Connects itself to the menu items, which must outlive it.
  explicit Menus(Targets targets);

 private:
  void ConnectFile();
  void ConnectOptions();
  void ConnectWindow();
  void ConnectHelp();
  void OfferFileItems();
  void ShowWebPage(const std::string& address);
  void ShowServicePage(const std::string& page);

  Targets to_;
};

}  // namespace tallyo
