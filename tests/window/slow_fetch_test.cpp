#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLabel>
#include <QTableView>
#include <csignal>

#include "tests/window/window_under_test.h"
#include "ui/qt/signal_watch.h"

namespace tallyo {
namespace {

using test::BoxKind;
using test::WindowUnderTest;

// Counts how often a widget is painted.
class Paintings : public QObject {
 public:
  explicit Paintings(QWidget& widget) { widget.installEventFilter(this); }
  int count = 0;

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    count += event->type() == QEvent::Paint ? 1 : 0;
    return false;
  }
};

class WindowFetching : public testing::Test {
 protected:
  explicit WindowFetching(BoxKind kind = BoxKind::Scripted) : test(kind) {}

  // One link that had 5 hits at the last refresh, and a service that keeps its counters back.
  void StartWithHeldCounters() {
    test.GiveAccount();
    test.GiveLink(1, "A");
    test.Start();
    test.Form().ListView1.SetValue(1, 1, "5");
    test.program.state.LastCheckTime = 36000;
    test.server.Answer(test::kCounters, "<P>12 A.zip\n");
    test.server.Hold("/cgi-bin/");
  }

  // Refreshes, acts while the counters are awaited, and runs to the end of the program.
  void EndDuringRefresh(const std::function<void()>& end) {
    StartWithHeldCounters();
    test.WhenRequested(2, end);
    QTimer::singleShot(0, &test.window, [this] { test.Press(Qt::Key_F5); });
    EXPECT_EQ(test.RunToEnd(), 0);
    ExpectEverythingSaved();
  }

  void ExpectEverythingSaved() {
    EXPECT_TRUE(test.program.Ended());
    EXPECT_EQ(test.FileText("Data/LastRead.dat"), "A=5,\r\n");
    EXPECT_EQ(test.Setting(names::kPrevCheck), "01-15-2026 36000");
  }

  WindowUnderTest test;
};

TEST_F(WindowFetching, LivesOnAndRefusesASecondOne) {
  StartWithHeldCounters();
  Paintings paintings(test.Find("Picture1_3"));
  const auto secondTry = [&] {
    test.Press(Qt::Key_F5);
    test.ClickItem("mnuImportAll");
    test.Show(screen::kManageLinks);
    test.Form().Label2[action::kPending].SetCaption("ADD");
    test.Form().Command1[1].SetEnabled(true);
    test.Form().Text1[field::kLinkPath].SetText("http://127.0.0.1/page");
    test.Click("Command1_1");
    test.Click("Label2_0");
    EXPECT_EQ(test.server.Requests().size(), 2U);
    EXPECT_TRUE(test.boxes.Shown().empty());
    EXPECT_TRUE(test.program.requests.InFlight());
    test.server.Release();
  };
  test.WhenRequested(2, [&] {
    test.Press(Qt::Key_1, Qt::ControlModifier);
    EXPECT_TRUE(test.Find("Picture1_3").isVisible());
    test.When([&] { return paintings.count > 0; }, secondTry);
  });
  test.Press(Qt::Key_F5);
  test.Settle();
  EXPECT_EQ(test.Find<QTableView>("ListView1").model()->index(0, 1).data().toString(), "12");
}

TEST_F(WindowFetching, EndsByTheStopButton) {
  StartWithHeldCounters();
  test.When([this] { return test.Find("StopTransfer").isVisible(); },
            [this] { QTest::mouseClick(&test.Find("StopTransfer"), Qt::LeftButton); });
  EXPECT_FALSE(test.Find("Busy").isVisible());
  test.ClickItem("mnuViewStats");
  EXPECT_FALSE(test.program.requests.InFlight());
  EXPECT_FALSE(test.Find("Busy").isVisible());
  EXPECT_EQ(test.Form().ListView1.Value(1, 1), "5");
  test.server.Release();
  test.ClickItem("mnuViewStats");
  EXPECT_EQ(test.Form().ListView1.Value(1, 1), "12");
}

TEST_F(WindowFetching, EndsByExitAtOnce) {
  EndDuringRefresh([this] { test.ClickItem("mnuQuit"); });
}

TEST_F(WindowFetching, EndsByClosingTheWindow) {
  EndDuringRefresh([this] { test.window.close(); });
}

TEST_F(WindowFetching, EndsByTheEndOfTheApplication) {
  EndDuringRefresh([] { QCoreApplication::quit(); });
}

TEST_F(WindowFetching, EndsByTheEndOfTheSession) {
  QObject manager;  // which nobody asks for anything
  EndDuringRefresh(
      [&] { emit qApp->commitDataRequest(reinterpret_cast<QSessionManager&>(manager)); });
}

TEST_F(WindowFetching, EndsBySignals) {
  const SignalWatch watch([this] { test.window.Quit(); });
  EndDuringRefresh([] {
    for (const int signal : {SIGHUP, SIGTERM, SIGINT}) {
      std::raise(signal);
    }
  });
}

TEST_F(WindowFetching, EndsInTheMidstOfSubmitting) {
  StartWithHeldCounters();
  test.Show(screen::kManageLinks);
  test.Form().Label2[action::kPending].SetCaption("ADD");
  test.Settle();
  const std::size_t before = test.server.Requests().size();
  test.WhenRequested(before + 1, [this] { test.window.close(); });
  QTimer::singleShot(0, &test.window, [this] { test.Click("Command1_1"); });
  EXPECT_EQ(test.RunToEnd(), 0);
  ExpectEverythingSaved();
  EXPECT_TRUE(test.boxes.Shown().empty());
}

class WindowWithBox : public WindowFetching {
 protected:
  WindowWithBox() : WindowFetching(BoxKind::Real) {}
};

TEST_F(WindowWithBox, ClosesTheBoxWhenTheProgramEnds) {
  for (const bool byClosing : {true, false}) {
    SCOPED_TRACE(byClosing);
    WindowUnderTest other(BoxKind::Real);
    other.Start();
    bool resumed = false;
    other.WhenBox([&](QMessageBox& /*box*/) {
      byClosing ? static_cast<void>(other.window.close()) : other.window.Quit();
    });
    QTimer::singleShot(0, &other.window, [&] {
      other.program.Dispatch([&] {
        other.realBoxes.Show({.text = "Really?", .title = "", .buttons = BoxButtons::YesNo});
        resumed = true;
      });
    });
    EXPECT_EQ(other.RunToEnd(), 0);
    EXPECT_FALSE(resumed);
    EXPECT_EQ(other.FileText("Data/LastRead.dat"), "\r\n");
  }
}

TEST_F(WindowWithBox, DropsTicksWhileABoxIsOpen) {
  StartWithHeldCounters();
  test.server.Release();
  int ticks = 0;
  const EventHandler tick = test.Form().Timer1.OnTimer;
  test.Form().Timer1.OnTimer = [&] {
    ++ticks;
    tick();
  };
  test.Form().ListView3.SetValue(detail::kSlotsLeft, 1, "");  // asks for the account with each tick
  test.Form().Timer1.SetIntervalMilliseconds(1);
  test.WhenBox([&](QMessageBox& box) {
    test.Form().Timer1.SetEnabled(true);
    const int before = ticks;
    const auto severalTicks = [&ticks, before] { return ticks > before + 5; };
    test.When(severalTicks, [&] {
      EXPECT_TRUE(test.server.Requests().empty());
      test.Form().Timer1.SetEnabled(false);
      QTest::keyClick(&box, Qt::Key_Escape);
    });
  });
  EXPECT_EQ(test.realBoxes.Show({.text = "?", .title = "", .buttons = BoxButtons::YesNo}),
            BoxAnswer::No);
  EXPECT_TRUE(test.server.Requests().empty());
  test.Form().Timer1.SetEnabled(true);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !test.server.Requests().empty(); }));
  test.Form().Timer1.OnTimer = tick;
}

}  // namespace
}  // namespace tallyo
