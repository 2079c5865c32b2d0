#include <QApplication>
#include <QIcon>
#include <csignal>
#include <filesystem>
#include <iostream>
#include <string>

#include "platform/curl_transfer.h"
#include "platform/posix_files.h"
#include "platform/process_lock.h"
#include "platform/system_clock.h"
#include "settings/sqlite_store.h"
#include "settings/version.h"
#include "ui/qt/main_window.h"
#include "ui/qt/qt_boxes.h"
#include "ui/qt/qt_pump.h"
#include "ui/qt/qt_shell.h"
#include "ui/qt/signal_watch.h"
#include "ui/qt/single_instance.h"
#include "ui/qt/window_options.h"

namespace {

using namespace tallyo;

std::filesystem::path ProgramFile() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error);
}

// The folder of the program file, unless the program was built for another one.
std::filesystem::path DefaultAppDir() {
  const std::filesystem::path builtFor = TALLYO_APP_DIR;
  return builtFor.empty() ? ProgramFile().parent_path() : builtFor;
}

void Say(const std::string& problem) { std::cerr << "tallyo: " << problem << '\n'; }

int RaiseRunning(int argc, char** argv, const std::filesystem::path& appDir) {
  const QCoreApplication application(argc, argv);
  if (SingleInstance::RaiseRunning(appDir)) {
    return 0;
  }
  Say("Tallyo is running in " + appDir.string() + " without a window; end it first");
  return 1;
}

// One line where what the person does cannot be kept.
void SayProblem(const SqliteStore& store, const ProcessLock& lock,
                const std::filesystem::path& appDir) {
  if (!store.Problem().empty()) {
    Say(store.Problem());
  } else if (lock.Result() == ProcessLock::Outcome::Unavailable) {
    Say("the folder " + appDir.string() + " cannot be written; nothing will be kept");
  }
}

void Describe(QApplication& application) {
  QApplication::setApplicationName("tallyo");  // the class of the window
  QApplication::setApplicationDisplayName({});
  QApplication::setApplicationVersion(QString::fromStdString(Version()));
  QApplication::setDesktopFileName("tallyo");
  application.setQuitOnLastWindowClosed(false);  // the program decides
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
    icon.addFile(QString(":/icons/tallyo-%1.png").arg(size), {size, size});
  }
  QApplication::setWindowIcon(icon);
}

int Run(int argc, char** argv, const ProgramOptions& options) {
  const ProcessLock lock(options.appDir);
  if (lock.Result() == ProcessLock::Outcome::HeldByAnother) {
    return RaiseRunning(argc, argv, options.appDir);
  }
  QApplication application(argc, argv);
  Describe(application);
  SingleInstance instance(options.appDir);
  const SystemClock clock;
  SqliteStore store(options.appDir / "settings.db", StoreAccess::ReadWrite);
  SayProblem(store, lock, options.appDir);
  PosixFiles files;
  CurlTransfer transfer("Tallyo/" + ShortVersion());
  QtPump pump;
  QtBoxes boxes(pump);
  QtShell shell(LogonEntry(ProgramFile(), options.appDir));
  Program program(options, {.clock = clock,
                            .files = files,
                            .transfer = transfer,
                            .store = store,
                            .pump = pump,
                            .boxes = boxes,
                            .shell = shell});
  MainWindow window(program);
  boxes.StandOver(window);
  boxes.OnClosed = [&] { window.RestartTimer(); };
  instance.OnSecondStart([&] { window.ComeForward(); });
  const SignalWatch stop([&] { window.Quit(); });
  if (window.Start()) {
    QApplication::exec();
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  std::signal(SIGPIPE, SIG_IGN);  // a server that goes away must not end the program
  const tallyo::WindowStart start = tallyo::ReadOptions(
      argc, argv, {.appDir = DefaultAppDir(), .serviceUrl = TALLYO_SERVICE_BASE_URL}, std::cout,
      std::cerr);
  return start.options ? Run(argc, argv, *start.options) : start.exitStatus;
}
