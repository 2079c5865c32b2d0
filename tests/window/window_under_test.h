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
#include <functional>
#include <stdexcept>
#include <string>

#include "tests/support/monitored_program.h"
#include "ui/qt/main_window.h"
#include "ui/qt/qt_boxes.h"
#include "ui/qt/qt_pump.h"

namespace tallyo::test {

enum class BoxKind { Scripted, Real };

// The window on the real program. The timer stands still unless a test starts it. Boxes that are
// real are kept as scripted ones are, and answered by whoever closes them.
class WindowUnderTest : public MonitoredProgram {
 public:
  explicit WindowUnderTest(BoxKind kind = BoxKind::Scripted)
      : realBoxes_(pump_), window(P(), OwnDocuments(folder.Path(), installed.Path())) {
    Event = [this] { pump_.Run(); };
    realBoxes_.StandOver(window);
    realBoxes_.OnClosed = [this] { window.RestartTimer(); };
    if (kind == BoxKind::Real) {
      Boxes().WhileOpen = [this] { Boxes().NextAnswer = realBoxes_.Show(Boxes().Shown().back()); };
    }
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
    P().screens.ShowScreen(static_cast<std::int16_t>(screen));
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
  // The same for a box or dialog of this kind, which the action gets.
  template <typename Dialog = QMessageBox>
  void WhenOpen(const std::function<void(Dialog&)>& action) {
    const auto open = [] { return qobject_cast<Dialog*>(QApplication::activeModalWidget()); };
    When([open] { return open() != nullptr; }, [open, action] { action(*open()); });
  }

  // Runs the window, with this event in it, until its program ends; the status that the program
  // would end with.
  int RunToEnd(const std::function<void()>& event) {
    QTimer::singleShot(0, &window, event);
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
  // Goes to a field with the mouse and types.
  void Enter(const QString& name, const QString& text) {
    Click(name);
    QTest::keyClicks(&Find(name), text);
  }
  // The widget that the keys go to.
  QWidget& Focused() {
    Settle();
    if (!QTest::qWaitFor([] { return QApplication::focusWidget() != nullptr; })) {
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

 private:
  // The end of an earlier window would still end the event loops of message boxes.
  struct FreshLoops {
    FreshLoops() {
      QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(); });
      QApplication::exec();
    }
  };

  FreshLoops loops_;
  QtPump pump_;
  QtBoxes realBoxes_;
  int waiting_ = 0;

 public:
  TempFolder installed;  // where the documents are that the folder of the program lacks
  MainWindow window;
};

}  // namespace tallyo::test
