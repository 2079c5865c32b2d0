#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QTimer>
#include <csignal>
#include <filesystem>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

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
#include "ui/qt/translation.h"
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

// The folder that the start page and the manual were installed in, seen from the program's.
std::filesystem::path DocumentDir() {
  return (ProgramFile().parent_path() / TALLYO_DOCUMENT_DIR).lexically_normal();
}

// How the desktop starts the program at logon: as it was started now.
LogonEntry EntryFor(const ProgramOptions& options) {
  std::vector<std::string> command = {ProgramFile().string(), "--app-dir", options.appDir.string()};
  if (options.serviceBaseUrl != TALLYO_SERVICE_BASE_URL) {
    command.insert(command.end(), {"--service-url", options.serviceBaseUrl});
  }
  return LogonEntry(std::move(command));
}

void Say(const QString& problem) {
  std::cerr << "tallyo: " << problem.toLocal8Bit().constData() << '\n';
}

QString NameOf(const std::filesystem::path& folder) { return QFile::decodeName(folder.c_str()); }

// The person's language, once there is an application.
Translation LanguageFor(const ProgramOptions& options) {
  return Translation({options.appDir, DocumentDir()}, QLocale::system());
}

int RaiseRunning(int argc, char** argv, const ProgramOptions& options) {
  const QCoreApplication application(argc, argv);
  if (SingleInstance::RaiseRunning(options.appDir)) {
    return 0;
  }
  const Translation language = LanguageFor(options);
  Say(QCoreApplication::translate("Start", "Tallyo is running in %1 without a window; end it first")
          .arg(NameOf(options.appDir)));
  return 1;
}

// One line where what the person does cannot be kept.
void SayProblem(const SqliteStore& store, const ProcessLock& lock,
                const std::filesystem::path& appDir) {
  if (!store.Problem().empty()) {
    Say(QString::fromStdString(store.Problem()));
  } else if (lock.Result() == ProcessLock::Outcome::Unavailable) {
    Say(QCoreApplication::translate("Start",
                                    "the folder %1 cannot be written; nothing will be kept")
            .arg(NameOf(appDir)));
  }
}

void Describe(QApplication& application) {
  QApplication::setApplicationName("tallyo");  // the class of the window
  QApplication::setApplicationDisplayName({});
  QApplication::setApplicationVersion(QString::fromStdString(Version()));
  QApplication::setDesktopFileName("tallyo");
  application.setQuitOnLastWindowClosed(false);  // the program decides
  // The pictures are read once the window stands: nobody waits for them.
  QTimer::singleShot(100, &application, [] {
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128}) {
      icon.addFile(QString(":/icons/tallyo-%1.png").arg(size), {size, size});
    }
    QApplication::setWindowIcon(icon);
  });
}

int Run(int argc, char** argv, const ProgramOptions& options) {
  const ProcessLock lock(options.appDir);
  if (lock.Result() == ProcessLock::Outcome::HeldByAnother) {
    return RaiseRunning(argc, argv, options);
  }
  QApplication application(argc, argv);
  Describe(application);
  const Translation language = LanguageFor(options);
  SingleInstance instance(options.appDir);
  const SystemClock clock;
  SqliteStore store(options.appDir / "settings.db", StoreAccess::ReadWrite);
  SayProblem(store, lock, options.appDir);
  PosixFiles files;
  CurlTransfer transfer(UserAgent());
  QtPump pump;
  QtBoxes boxes(pump);
  const OwnDocuments documents(options.appDir, DocumentDir());
  QtShell shell(documents, EntryFor(options));
  Program program(options, {.clock = clock,
                            .files = files,
                            .transfer = transfer,
                            .store = store,
                            .pump = pump,
                            .boxes = boxes,
                            .shell = shell});
  MainWindow window(program, documents);
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
