#include <gtest/gtest.h>

#include <QTableView>
#include <csignal>

#include "tests/window/window_under_test.h"
#include "ui/qt/signal_watch.h"

namespace tallyo {
namespace {

using test::WindowUnderTest;

class WindowFetching : public testing::Test {
 protected:
  // One link that had 5 hits at the last refresh, and a service that keeps its counters back.
  void StartWithHeldCounters() {
    test.GiveAccount();
    test.GiveLinks({"A"});
    test.Start();
    test.Form().ListView1.SetValue(1, 1, "5");
    test.P().state.LastCheckTime = 36000;
    test.GiveCounters("<P>12 A.zip\n");
    test.server.Hold("/cgi-bin/");
  }

  // Refreshes, acts while the counters are awaited, and runs to the end of the program.
  void EndDuringRefresh(const std::function<void()>& end) {
    StartWithHeldCounters();
    test.WhenRequested(2, end);
    EXPECT_EQ(test.RunToEnd([this] { test.Press(Qt::Key_F5); }), 0);
    EXPECT_TRUE(test.P().Ended());
    EXPECT_EQ(test.LastRead(), "A=5,\r\n");
    EXPECT_EQ(test.Setting(names::kPrevCheck), "01-15-2026 36000");
  }

  WindowUnderTest test;
};

TEST_F(WindowFetching, LivesOnAndRefusesASecondOne) {
  StartWithHeldCounters();
  test.WhenRequested(2, [&] {
    test.Press(Qt::Key_1, Qt::ControlModifier);
    EXPECT_TRUE(test.Find("Picture1_3").isVisible());
    test.Press(Qt::Key_F5);
    test.ClickItem("mnuImportAll");
    EXPECT_EQ(test.server.Requests().size(), 2U);
    EXPECT_TRUE(test.P().requests.InFlight());
    test.server.Release();
  });
  test.Press(Qt::Key_F5);
  test.Settle();
  EXPECT_TRUE(test.Boxes().Shown().empty());
  EXPECT_EQ(test.Find<QTableView>("ListView1").model()->index(0, 1).data().toString(), "12");
}

TEST_F(WindowFetching, EndsByTheStopButton) {
  StartWithHeldCounters();
  test.When([this] { return test.Find("StopTransfer").isVisible(); },
            [this] { QTest::mouseClick(&test.Find("StopTransfer"), Qt::LeftButton); });
  EXPECT_FALSE(test.Find("Busy").isVisible());
  test.ClickItem("mnuViewStats");
  EXPECT_FALSE(test.P().requests.InFlight());
  EXPECT_FALSE(test.Find("Busy").isVisible());
  EXPECT_EQ(test.Form().ListView1.Value(1, 1), "5");
  // A tick begins another fetch, which changes no text that is not there already.
  test.P().state.LastCheckTime = 0;
  bool seen = false;
  test.When([this] { return test.Find("StopTransfer").isVisible(); },
            [&] {
              seen = true;
              QTest::mouseClick(&test.Find("StopTransfer"), Qt::LeftButton);
            });
  test.WhenRequested(4, [this] {
    QTimer::singleShot(2000, &test.window, [this] { test.P().requests.StopFetch(); });
  });
  test.P().Dispatch([this] { test.P().scheduler.OnTimerTick(); });
  EXPECT_TRUE(seen);
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

TEST(WindowWithBox, ClosesTheBoxWhenTheProgramEnds) {
  WindowUnderTest test(test::BoxKind::Real);
  test.Start();
  bool resumed = false;
  test.WhenOpen<QMessageBox>([&](QMessageBox& /*box*/) { test.window.close(); });
  const auto ask = [&] {
    test.Boxes().Show({.text = "Really?", .title = "", .buttons = BoxButtons::YesNo});
    resumed = true;
  };
  EXPECT_EQ(test.RunToEnd([&] { test.P().Dispatch(ask); }), 0);
  EXPECT_FALSE(resumed);
  EXPECT_EQ(test.LastRead(), "\r\n");
}

}  // namespace
}  // namespace tallyo
