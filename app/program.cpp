#include "app/program.h"

#include "platform/transport_failure.h"
#include "settings/names.h"
#include "text/runtime_error.h"

namespace tallyo {
namespace {

// Runs one step whose failure must not keep the next from running.
template <typename Step>
bool Survives(const Step& step) {
  try {
    step();
    return true;
  } catch (const RuntimeError&) {
    return false;
  } catch (const TransportFailure&) {
    return false;
  }
}

SharedState InitialState(const ProgramOptions& options) {
  SharedState state;
  state.AppDir = options.appDir;
  state.ServiceBaseUrl = options.serviceBaseUrl;
  return state;
}

}  // namespace

Program::Program(const ProgramOptions& options, const Machine& machine)
    : machine_(machine),
      state(InitialState(options)),
      settings(machine.store),
      requests(form, state, machine.transfer, machine.pump),
      traffic(form, settings),
      dailyFiles(form, state, machine.files, machine.clock),
      links(form, state, settings, options.appendAfterLast),
      verification(form, state, settings, requests, traffic, machine.clock, machine.boxes),
      account(form, settings, verification, machine.boxes),
      savedData(form, state, machine.store, machine.files, machine.boxes),
      configurationExport(form, state, links, machine.files, machine.boxes),
      configurationImport(form, state, settings, machine.files, machine.boxes, requests, links,
                          savedData),
      registration(form, requests, traffic, links, machine.boxes),
      snapshot(form, state, settings, machine.files, links, dailyFiles, options.countOnce),
      refresh(form, state, machine.clock, requests, traffic, account, verification, links,
              dailyFiles, snapshot),
      scheduler(form, state, settings, machine.clock, machine.pump, machine.boxes, requests,
                verification, refresh),
      screens(form, state),
      preferences(form, state, settings, machine.shell),
      dailyStatus(form, screens, dailyFiles, machine.clock),
      serviceInfo(form, state, settings, machine.clock, screens, verification),
      importQueue(form, screens),
      pageImport(form, requests, traffic, screens, importQueue),
      manageLinks(form, state, machine.pump, machine.boxes, requests, screens, account,
                  verification, links, registration, pageImport, importQueue),
      textScreen(form, machine.clock, requests, screens, configurationExport),
      menus({.form = form,
             .state = state,
             .requests = requests,
             .screens = screens,
             .account = account,
             .manageLinks = manageLinks,
             .refresh = refresh,
             .dailyStatus = dailyStatus,
             .textScreen = textScreen,
             .configurationImport = configurationImport,
             .shell = machine.shell,
             .serviceInfo = serviceInfo,
             .quit = [this] { Quit(); }}) {
  savedData.OnReset = [this] { importQueue.End(); };
  registration.BeforeRemoval = [this] { snapshot.KeepBeforeRemoval(); };
  form.Timer1.OnTimer = [this] { scheduler.OnTimerTick(); };
}

void Program::StartProgram() {
  MakeFolders();
  state.NextLinkIndex = 1;
  FormLoad();
  Survives([&] { account.LoadAccount(); });
  Survives([&] { links.LoadMonitoredLinks(); });
  form.Frame.SetVisible(true);
  CheckLinks();
  snapshot.Recover();
  Survives([&] { snapshot.LoadSnapshot(); });
  countersLoaded_ = true;
  scheduler.Begin();
}

void Program::MakeFolders() {
  Survives([&] { machine_.files.MakeFolder(state.DataFolder()); });
  Survives([&] { dailyFiles.EnsureYearFolder(); });
  dailyFiles.ClearWorkFiles();
}

void Program::CheckLinks() {
  std::uint16_t mismatch = 0;
  Survives([&] { mismatch = links.CheckMonitoredLinks(); });
  if (mismatch > 65534) {
    Survives([&] { savedData.ConfirmMisconfigurationReset(Confirm::Ask); });
  }
}

void Program::FormLoad() {
  form.Frame.SetCaption(std::string(names::AppTitle));
  form.TmnuDisTitle.SetCaption(std::string(8, ' ') + state.ServiceBaseUrl);
  screens.ShowScreen(screen::kLoading);
  dailyStatus.BuildGrid();
  serviceInfo.BuildRows();
  form.ListView3.SetValue(detail::kBytesTotal, 1, settings.Get(names::kBytesTransTotal));
  Survives([&] { preferences.Restore(); });
  Survives([&] { scheduler.RestoreLastCheckTime(); });
  form.Timer1.SetEnabled(true);
  screens.ShowScreen(screen::kWebPage);
  form.WB1.Navigate((state.AppDir / "intro.sht").string());
  form.ListView3.SetValue(detail::kOtherStatus, 1, "Not connected");
  form.ListView3.SetValue(detail::kAccountStatus, 1, "Unknown");
}

void Program::LoadForReading() {
  state.YearFolder = YearText(machine_.clock.Now().date) + "/";
  dailyStatus.BuildGrid();
  serviceInfo.BuildRows();
  account.LoadAccount();
  Survives([&] { links.LoadMonitoredLinks(); });
  Survives([&] { static_cast<void>(links.CheckMonitoredLinks()); });
  Survives([&] { snapshot.LoadSnapshot(); });
}

bool Program::Dispatch(const std::function<void()>& event) {
  if (Ended()) {
    return false;
  }
  try {
    return Survives(event) && !Ended();
  } catch (const ProgramEnded&) {
    return false;
  }
}

void Program::Quit() {
  if (Ended()) {
    return;
  }
  machine_.pump.End();  // first, so that nothing that runs below can quit again
  importQueue.End();
  requests.CancelTransfers();
  // Without the list of links there are no rows, and the last counters stay for when it is back.
  if (countersLoaded_ && machine_.store.Readable()) {
    Survives([&] { snapshot.SaveSnapshot(); });
  }
  Survives([&] { scheduler.SaveLastCheckTime(); });
}

}  // namespace tallyo
