#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTableView>

#include "tests/window/window_under_test.h"

namespace tallyo {
namespace {

using test::BoxKind;
using test::WindowUnderTest;
using testing::ElementsAre;

// A person's way from the first start to the first counter, with real message boxes.
class FirstCounterTest : public testing::Test {
 protected:
  FirstCounterTest() {
    test.GiveAccount(false);
    test.server.Answer("/cgi-bin/Tallyo/devstats.cgi?account=mysitef.txt&action=add", "<P>ok");
    test.server.Answer(test::kCounters, "<P>12 prog.zip\n");
  }

  // Closes the next box in this way and keeps what it said.
  void CloseNextBox(const std::function<void(QMessageBox&)>& close) {
    test.WhenBox([this, close](QMessageBox& box) {
      said.push_back(box.text().toStdString());
      close(box);
    });
  }

  void ExpectTheHourInTheGrid() {
    EXPECT_THAT(said, ElementsAre("Welcome Acme Your account information has been saved",
                                  "Operation succesful - Prog Added"));
    EXPECT_EQ(test.Setting(names::kAccount), "mysite");
    const auto& status = *test.Find<QTableView>("ListView1").model();
    EXPECT_EQ(status.index(0, 0).data().toString(), "Prog");
    EXPECT_EQ(status.index(0, 1).data().toString(), "12");
    EXPECT_TRUE(test.Find("ListView2").isVisible());
    // 15 January, noon.
    EXPECT_EQ(test.Find<QTableView>("ListView2").model()->index(12, 15).data().toString(), "12");
  }

  WindowUnderTest test{BoxKind::Real};
  std::vector<std::string> said;
};

TEST_F(FirstCounterTest, IsReachedWithTheMouse) {
  const auto clickOk = [this] {
    CloseNextBox(
        [](QMessageBox& box) { QTest::mouseClick(box.button(QMessageBox::Ok), Qt::LeftButton); });
  };
  test.Start();
  test.ClickItem("mnuManage");
  test.Enter("Text1_0", "Acme");
  test.Enter("Text1_1", "mysite");
  clickOk();
  test.ClickItem("mnuSave");
  test.Enter("Text1_2", "http://h/files/prog.zip");
  test.Enter("Text1_4", "Prog");
  EXPECT_EQ(test.Find<QLineEdit>("Text1_3").text(), "prog.zip");
  test.Hover("Label2_1");
  EXPECT_EQ(test.Form().Label2[action::kAdd].BackColor(), kGreen);
  test.Click("Label2_1");
  clickOk();
  test.Click("Command1_1");
  test.ClickItem("mnuViewStats");
  test.ClickItem("mnuWindDaily");
  ExpectTheHourInTheGrid();
}

TEST_F(FirstCounterTest, IsReachedWithTheKeyboard) {
  const auto pressEnter = [this] {
    CloseNextBox([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
  };
  const auto type = [this](const QString& text) { QTest::keyClicks(&test.Focused(), text); };
  const auto tabTo = [this](const QString& name) {
    for (int i = 0; i < 30 && test.Focused().objectName() != name; ++i) {
      test.Press(Qt::Key_Tab);
    }
    ASSERT_EQ(test.Focused().objectName(), name);
  };
  test.Start();
  test.ChooseItem(Qt::Key_O, "mnuManage");
  EXPECT_EQ(test.Focused().objectName(), "Text1_0");
  type("Acme");
  tabTo("Text1_1");
  type("mysite");
  pressEnter();
  test.ChooseItem(Qt::Key_F, "mnuSave");
  EXPECT_EQ(test.Focused().objectName(), "Text1_2");
  type("http://h/files/prog.zip");
  tabTo("Text1_3");
  EXPECT_EQ(test.Form().Text1[field::kReference].Text(), "prog.zip");
  tabTo("Text1_4");
  type("Prog");
  tabTo("Label2_1");
  EXPECT_EQ(test.Form().Label2[action::kAdd].BackColor(), kGreen);
  test.Press(Qt::Key_Space);
  EXPECT_TRUE(test.Find("Command1_1").isEnabled());
  pressEnter();
  test.Press(Qt::Key_S, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return said.size() == 2; }));
  test.Press(Qt::Key_F5);
  test.Press(Qt::Key_1, Qt::ControlModifier);
  ExpectTheHourInTheGrid();
}

}  // namespace
}  // namespace tallyo
