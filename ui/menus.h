#pragma once

#include <functional>
#include <string_view>

#include "account/account_entry.h"
#include "form/main_form.h"
#include "form/shared_state.h"
#include "stats/service_requests.h"
#include "stats/statistics_refresh.h"
#include "ui/daily_status.h"
#include "ui/manage_links.h"
#include "ui/screens.h"
#include "ui/service_info.h"

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
    ServiceInfo& serviceInfo;
    std::function<void()> quit;
  };

  // Connects itself to the menu items, which must outlive it.
  explicit Menus(const Targets& targets);

 private:
  void ConnectFile();
  void ConnectOptions();
  void ConnectWindow();
  void OfferFileItems();
  void ShowWebPage(const std::string& address);

  Targets to_;
};

}  // namespace tallyo
