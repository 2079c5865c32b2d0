#pragma once

#include <functional>

#include "account/account_entry.h"
#include "account/account_verification.h"
#include "account/configuration_export.h"
#include "account/configuration_import.h"
#include "account/saved_data.h"
#include "app/machine.h"
#include "app/program_options.h"
#include "form/main_form.h"
#include "form/shared_state.h"
#include "links/monitored_links.h"
#include "links/registration.h"
#include "settings/settings.h"
#include "stats/daily_files.h"
#include "stats/refresh_scheduler.h"
#include "stats/service_requests.h"
#include "stats/snapshot.h"
#include "stats/statistics_refresh.h"
#include "stats/traffic_totals.h"
#include "ui/daily_status.h"
#include "ui/import_queue.h"
#include "ui/manage_links.h"
#include "ui/menus.h"
#include "ui/page_import.h"
#include "ui/preferences.h"
#include "ui/screens.h"
#include "ui/service_info.h"
#include "ui/text_screen.h"

namespace tallyo {

// The whole program without a view: the window as data, the shared state, and every part, wired to
// the others by reference. The members are public, since this is where the parts meet; each keeps
// its own secrets.
class Program {
 public:
  Program(const ProgramOptions& options, const Machine& machine);
  ~Program() = default;
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  // Starts the program: folders, shared state, the window with its load step, account and links,
  // their check, the counters of the last session. A step that fails keeps none of the later ones
  // from running. Throws ProgramEnded where the person quits meanwhile. To be called once.
  void StartProgram();

  // Puts the saved account, links and counters into the window without changing anything anywhere.
  void LoadForReading();

  // Runs one event of the person or the timer. What its handler fails with ends here: the rest of
  // the event is dropped, nothing is rolled back. False where it failed or the program has ended.
  bool Dispatch(const std::function<void()>& event);

  // Cancels a transfer, saves the counters and the time of the last check, and ends the program:
  // whatever waits unwinds. A second call does nothing.
  void Quit();

  [[nodiscard]] bool Ended() const { return machine_.pump.Ended(); }

 private:
  Machine machine_;

 public:
  MainForm form;
  SharedState state;
  Settings settings;
  ServiceRequests requests;
  TrafficTotals traffic;
  DailyFiles dailyFiles;
  MonitoredLinks links;
  AccountVerification verification;
  AccountEntry account;
  SavedData savedData;
  ConfigurationExport configurationExport;
  ConfigurationImport configurationImport;
  LinkRegistration registration;
  Snapshot snapshot;
  StatisticsRefresh refresh;
  RefreshScheduler scheduler;
  Screens screens;
  Preferences preferences;
  DailyStatus dailyStatus;
  ServiceInfo serviceInfo;
  ImportQueue importQueue;
  PageImport pageImport;
  ManageLinks manageLinks;
  TextScreen textScreen;
  Menus menus;

 private:
  void FormLoad();
  void MakeFolders();
  void CheckLinks();

  // Before this the rows hold no counters yet, and saving them would wipe those of last time.
  bool countersLoaded_ = false;
};

}  // namespace tallyo
