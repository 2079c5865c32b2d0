#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTableView>

#include "tests/window/window_under_test.h"

namespace tallyo {
namespace {

using test::BoxKind;
using test::WindowUnderTest;

// A person's way from the first start to the first counter, with real message boxes.
class FirstCounterTest : public testing::Test {
 protected:
  void Type(const QString& text) { QTest::keyClicks(&test.Focused(), text); }
  void TabTo(const QString& name) {
    for (int i = 0; i < 30 && test.Focused().objectName() != name; ++i) {
      test.Press(Qt::Key_Tab);
    }
    ASSERT_EQ(test.Focused().objectName(), name);
  }
  // The access key of the menu, then down to the item.
  void ChooseItem(Qt::Key menuKey, const QString& item) {
    auto* const menu = qobject_cast<QMenu*>(test.Find<QAction>(item).parent());
    QTest::keyClick(&test.Focused(), menuKey, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([menu] { return menu->isVisible(); }));
    for (int i = 0; i < 20 && menu->activeAction() != &test.Find<QAction>(item); ++i) {
      QTest::keyClick(menu, Qt::Key_Down);
    }
    QTest::keyClick(menu, Qt::Key_Return);
  }
  void PressEnterInTheNextBox() {
    test.WhenOpen<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
  }

  WindowUnderTest test{BoxKind::Real};
};

TEST_F(FirstCounterTest, IsReachedWithTheKeyboard) {
  test.GiveAccount(10, "01/15/2027", false);
  test.server.Answer("/cgi-bin/Tallyo/devstats.cgi?account=mysitef.txt&action=add", "<P>ok");
  test.GiveCounters("<P>12 prog.zip\n");
  test.Start();
  ChooseItem(Qt::Key_O, "mnuManage");
  EXPECT_EQ(test.Focused().objectName(), "Text1_0");
  Type("Acme");
  TabTo("Text1_1");
  Type("mysite");
  PressEnterInTheNextBox();
  ChooseItem(Qt::Key_F, "mnuSave");
  EXPECT_EQ(test.Focused().objectName(), "Text1_2");
  Type("http://h/files/prog.zip");
  TabTo("Text1_3");
  EXPECT_EQ(test.Form().Text1[field::kReference].Text(), "prog.zip");
  TabTo("Text1_4");
  Type("Prog");
  TabTo("Label2_1");
  EXPECT_EQ(test.Form().Label2[action::kAdd].BackColor(), kGreen);
  test.Press(Qt::Key_Space);
  EXPECT_TRUE(test.Find("Command1_1").isEnabled());
  PressEnterInTheNextBox();
  test.Press(Qt::Key_S, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return test.Boxes().Shown().size() == 2; }));
  test.Press(Qt::Key_F5);
  test.Press(Qt::Key_1, Qt::ControlModifier);
  EXPECT_THAT(test.Boxes().Texts(),
              testing::ElementsAre("Welcome Acme Your account information has been saved",
                                   "Operation succesful - Prog Added"));
  EXPECT_EQ(test.Setting(names::kAccount), "mysite");
  const auto& status = *test.Find<QTableView>("ListView1").model();
  EXPECT_EQ(status.index(0, 0).data().toString(), "Prog");
  EXPECT_EQ(status.index(0, 1).data().toString(), "12");
  EXPECT_TRUE(test.Find("ListView2").isVisible());
  // 15 January, noon.
  EXPECT_EQ(test.Find<QTableView>("ListView2").model()->index(12, 15).data().toString(), "12");
}

}  // namespace
}  // namespace tallyo
