#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "app/program.h"
#include "platform/curl_transfer.h"
#include "platform/posix_files.h"
#include "settings/names.h"
#include "settings/sqlite_store.h"
#include "settings/value_text.h"
#include "tests/support/fake_clock.h"
#include "tests/support/scripted_boxes.h"
#include "tests/support/scripted_server.h"
#include "tests/support/temp_folder.h"
#include "text/two_digits.h"
#include "ui/qt/main_window.h"
#include "ui/qt/qt_boxes.h"
#include "ui/qt/qt_pump.h"

namespace tallyo::test {

inline constexpr std::string_view kCounters = "/cgi-bin/Tallyo/devstats.cgi?account=mysite.txt";

enum class BoxKind { Scripted, Real };

// The window on the real program, put together as the program file does it, with a scripted
// service, a clock that the test sets and a desktop that only takes notes. The timer stands still
// unless a test starts it.
class WindowUnderTest {
 public:
  explicit WindowUnderTest(BoxKind kind = BoxKind::Scripted)
      : store(folder.Path() / "settings.db", StoreAccess::ReadWrite),
        transfer("Tallyo/test"),
        boxes(pump),
        realBoxes(pump),
        program({.appDir = folder.Path(), .serviceBaseUrl = server.Url()},
                {.clock = clock,
                 .files = files,
                 .transfer = transfer,
                 .store = store,
                 .pump = pump,
                 .boxes = kind == BoxKind::Real ? static_cast<MessageBoxes&>(realBoxes) : boxes,
                 .shell = shell}),
        window(program, OwnDocuments(folder.Path(), installed.Path())) {
    realBoxes.StandOver(window);
    realBoxes.OnClosed = [this] { window.RestartTimer(); };
  }
  ~WindowUnderTest() { EXPECT_EQ(waiting_, 0) << "something that a test waited for never came"; }
  WindowUnderTest(const WindowUnderTest&) = delete;
  WindowUnderTest& operator=(const WindowUnderTest&) = delete;

  void Start() {
    ASSERT_TRUE(window.Start());
    Form().Timer1.SetEnabled(false);
    Settle();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  }

  // What must be there before the start: an account that the service accepts, and links. Link NAME
  // has the reference "NAME.zip" and the path "http://h/NAME".
  void GiveAccount(bool stored = true, const std::string& company = "Acme") {
    server.Answer("/Tallyo/accounts/mysite.txt",
                  "opn=01/15/2014,max=10,exp=01/15/2027,ban=no,com=" + company + ",acc=mysite\n");
    if (stored) {
      Set(names::kUser, company);
      Set(names::kAccount, "mysite");
    }
  }
  void GiveLink(int number, const std::string& name) {
    GiveRecord(number, "1," + name + "," + name + ".zip,http://h/" + name);
  }
  void GiveRecord(int number, const std::string& record) {
    const std::string text = TwoDigits(number);
    SetSettingValue(store, Hive::LocalMachine, std::string(names::MonitorFilesKey) + text, text,
                    record);
  }
  void Set(std::string_view name, std::string_view text) {
    SetSettingValue(store, Hive::LocalMachine, names::SettingsKey, name, text);
  }
  [[nodiscard]] std::string Setting(std::string_view name) {
    return QuerySettingValue(store, Hive::LocalMachine, names::SettingsKey, name);
  }
  [[nodiscard]] std::string FileText(std::string_view path) {
    return files.Exists(folder.Path() / path) ? files.Read(folder.Path() / path) : "(no file)";
  }

  [[nodiscard]] MainForm& Form() { return program.form; }
  template <typename Widget = QWidget>
  [[nodiscard]] Widget& Find(const QString& name) {
    auto* const found = window.findChild<Widget*>(name);
    if (found == nullptr) {
      throw std::runtime_error("nothing is called " + name.toStdString());
    }
    return *found;
  }

  // Lets the window show what the program has changed. What has closed hands the window back, as a
  // desktop does.
  void Settle() {
    if (QApplication::activePopupWidget() == nullptr &&
        QApplication::activeModalWidget() == nullptr) {
      window.activateWindow();
    }
    for (int i = 0; i < 3; ++i) {
      QCoreApplication::sendPostedEvents();
      QCoreApplication::processEvents();
    }
  }
  void Show(int screen) {
    program.screens.ShowScreen(static_cast<std::int16_t>(screen));
    Settle();
  }

  // Runs the action once, from the window's own events, as soon as the condition holds.
  void When(const std::function<bool()>& condition, const std::function<void()>& action) {
    ++waiting_;
    auto* const timer = new QTimer(&window);
    QObject::connect(timer, &QTimer::timeout, timer, [this, timer, condition, action] {
      if (condition()) {
        --waiting_;
        timer->stop();
        timer->deleteLater();
        action();
      }
    });
    timer->start(1);
  }
  void WhenRequested(std::size_t count, const std::function<void()>& action) {
    When([this, count] { return server.Requests().size() >= count; }, action);
  }

  // Runs the window until its program ends; the status that the program would end with.
  int RunToEnd() {
    QTimer tooLate;
    tooLate.setSingleShot(true);
    QObject::connect(&tooLate, &QTimer::timeout, qApp, [] { QCoreApplication::exit(99); });
    tooLate.start(30000);
    return QApplication::exec();
  }

  void Click(const QString& name) {
    QTest::mouseClick(&Find(name), Qt::LeftButton);
    Settle();
  }
  void Hover(const QString& name) {
    const QWidget& widget = Find(name);
    QTest::mouseMove(window.windowHandle(), widget.mapTo(&window, widget.rect().center()));
    Settle();
  }
  void Type(const QString& name, const QString& text) { QTest::keyClicks(&Find(name), text); }
  // Goes to a field with the mouse and types.
  void Enter(const QString& name, const QString& text) {
    Click(name);
    Type(name, text);
  }
  // The widget that the keys go to.
  QWidget& Focused() {
    Settle();
    const auto focused = [] { return QApplication::focusWidget() != nullptr; };
    if (!QTest::qWaitFor(focused)) {
      throw std::runtime_error("nothing has the focus");
    }
    return *QApplication::focusWidget();
  }
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(&Focused(), key, modifiers);
    Settle();
  }

  // Opens the item's menu with the mouse.
  QMenu* OpenMenu(const QString& item) {
    auto* const menu = qobject_cast<QMenu*>(Find<QAction>(item).parent());
    QMenuBar* const bar = window.menuBar();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(menu->menuAction()).center());
    EXPECT_TRUE(QTest::qWaitFor([menu] { return menu->isVisible(); }));
    return menu;
  }
  void Leave(QMenu& menu) {
    QTest::keyClick(&menu, Qt::Key_Escape);
    QTest::keyClick(window.menuBar(), Qt::Key_Escape);
  }
  void ClickItem(const QString& item) {
    QMenu* const menu = OpenMenu(item);
    QTest::mouseClick(menu, Qt::LeftButton, {},
                      menu->actionGeometry(&Find<QAction>(item)).center());
    if (menu->isVisible()) {  // as it stays after a click on a disabled item
      Leave(*menu);
    }
    Settle();
  }
  // The same with keys: the access key of the menu, then down to the item.
  void ChooseItem(Qt::Key menuKey, const QString& item) {
    auto* const menu = qobject_cast<QMenu*>(Find<QAction>(item).parent());
    QTest::keyClick(&Focused(), menuKey, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([menu] { return menu->isVisible(); }));
    for (int i = 0; i < 20 && menu->activeAction() != &Find<QAction>(item); ++i) {
      QTest::keyClick(menu, Qt::Key_Down);
    }
    QTest::keyClick(menu, Qt::Key_Return);
    Settle();
  }

  [[nodiscard]] static QMessageBox* OpenBox() {
    return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
  }
  void WhenBox(const std::function<void(QMessageBox&)>& action) {
    When([] { return OpenBox() != nullptr; }, [action] { action(*OpenBox()); });
  }

  struct NotingShell final : Shell {
    void Open(const std::filesystem::path& document) override { opened.push_back(document); }
    void RunAtLogon(bool run) override { runAtLogon.push_back(run); }
    std::vector<std::filesystem::path> opened;
    std::vector<bool> runAtLogon;
  };

  // The end of an earlier window would still end the event loops of message boxes.
  struct FreshLoops {
    FreshLoops() {
      QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(); });
      QApplication::exec();
    }
  };

  FreshLoops loops;
  FakeClock clock;
  ScriptedServer server;
  TempFolder folder;
  TempFolder installed;  // where the documents are that the folder above lacks
  PosixFiles files;
  SqliteStore store;
  CurlTransfer transfer;
  QtPump pump;
  ScriptedBoxes boxes;
  QtBoxes realBoxes;
  NotingShell shell;
  Program program;
  MainWindow window;

 private:
  int waiting_ = 0;
};

}  // namespace tallyo::test
