#include <gtest/gtest.h>

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTableView>

#include "tests/window/window_under_test.h"

namespace tallyo {
namespace {

using test::WindowUnderTest;

constexpr int kManyRows = 32767;

class WindowControlsTest : public testing::Test {
 protected:
  void StartOn(int screen) {
    test.GiveAccount();
    test.GiveLink(1, "A");
    test.GiveLink(2, "B");
    test.Start();
    test.Show(screen);
  }
  [[nodiscard]] std::string Cell(const char* view, int row, int column) {
    return test.Find<QTableView>(view).model()->index(row, column).data().toString().toStdString();
  }
  [[nodiscard]] static std::string Clipboard() {
    return QApplication::clipboard()->text().toStdString();
  }

  WindowUnderTest test;
};

TEST_F(WindowControlsTest, FieldsGoBothWays) {
  StartOn(screen::kManageLinks);
  for (std::size_t i = 0; i < test.Form().Text1.size(); ++i) {
    TextBox& box = test.Form().Text1[i];
    auto& edit = test.Find<QLineEdit>(QString("Text1_%1").arg(i));
    box.SetText("caf\xC3\xA9");
    test.Settle();
    EXPECT_EQ(edit.text(), "café");
    test.Click(edit.objectName());
    QTest::keyClick(&edit, Qt::Key_End);
    QTest::keyClick(&edit, Qt::Key_Left);
    QTest::keyClicks(&edit, "x");
    EXPECT_EQ(box.Text(), "cafx\xC3\xA9");
    EXPECT_EQ(box.Caret(), 4U);
    EXPECT_EQ(test.Form().Focused(), &box);
    box.SetEnabled(false);
    test.Settle();
    EXPECT_FALSE(edit.isEnabled());
    box.SetEnabled(true);
    test.Settle();
  }
  EXPECT_TRUE(test.program.state.FieldTyped);
}

TEST_F(WindowControlsTest, LeavingAFieldRunsItsRule) {
  StartOn(screen::kManageLinks);
  test.Enter("Text1_2", "http://h/d/f.zip");
  QMenu* const menu = test.OpenMenu("mnuPrefs");
  EXPECT_EQ(test.Form().Focused(), &test.Form().Text1[field::kLinkPath]);
  test.Leave(*menu);
  test.Settle();
  EXPECT_EQ(test.Find<QLineEdit>("Text1_3").text(), "");
  test.Press(Qt::Key_Tab);
  EXPECT_EQ(test.Find<QLineEdit>("Text1_3").text(), "f.zip");
  EXPECT_EQ(test.Form().Focused(), &test.Form().Text1[field::kSizeKb]);

  test.ClickItem("mnuPrefs");
  EXPECT_NE(test.Form().Focused(), &test.Form().Text1[field::kSizeKb]);
  test.Find<QLineEdit>("Text2").clear();
  test.Enter("Text2", "0.1");
  test.Enter("Text3", "http://d/");
  EXPECT_EQ(test.Find<QLineEdit>("Text2").text(), "0.5");
  EXPECT_EQ(test.Setting(names::kUpdDefTime), "0.5");
  test.Click("Check1_2");
  EXPECT_EQ(test.Setting(names::kDefUrl), "http://d/");
}

TEST_F(WindowControlsTest, BoxesWithATickGoBothWays) {
  StartOn(screen::kPreferences);
  for (std::size_t i = 0; i < test.Form().Check1.size(); ++i) {
    CheckBox& box = test.Form().Check1[i];
    auto& widget = test.Find<QCheckBox>(QString("Check1_%1").arg(i));
    EXPECT_EQ(widget.isEnabled(), box.Enabled());
    EXPECT_EQ(widget.text().toStdString(), box.Caption());
    if (box.Enabled()) {
      QTest::mouseClick(&widget, Qt::LeftButton, {}, {8, widget.height() / 2});
      test.Settle();
      EXPECT_EQ(box.Value(), 1) << i;
      EXPECT_TRUE(widget.isChecked()) << i;
    }
    box.SetValue(2);
    test.Settle();
    EXPECT_EQ(widget.checkState(), Qt::PartiallyChecked) << i;
    box.SetValue(0);
    test.Settle();
    EXPECT_EQ(widget.checkState(), Qt::Unchecked) << i;
  }
  EXPECT_EQ(test.shell.runAtLogon.front(), true);
}

TEST_F(WindowControlsTest, LabelsOfAllScreensComeAndGo) {
  StartOn(screen::kPreferences);
  test.Form().Label4[0].SetCaption("8");
  EXPECT_FALSE(test.Find("Label4_0").isVisible());
  QTest::keyClick(&test.Find("Check1_4"), Qt::Key_Space);
  for (const int screen : {screen::kPreferences, screen::kCurrentStatus, screen::kDailyStatus}) {
    test.Show(screen);
    EXPECT_TRUE(test.Find("Label4_0").isVisible());
    EXPECT_TRUE(test.Find("Label5_1").isVisible());
    EXPECT_FALSE(test.Find("Label5_0").isVisible());
    EXPECT_TRUE(test.window.rect().contains(test.Find("Label4_0").mapTo(&test.window, QPoint())));
    EXPECT_EQ(test.Find<QLabel>("Label4_0").text(), "8");
  }
  test.Form().Label8.SetCaption("Form reseted");
  test.Settle();
  EXPECT_EQ(test.Find<QLabel>("Label8").text(), "Form reseted");
  EXPECT_FALSE(test.Find("Label2_5").isVisible());
}

TEST_F(WindowControlsTest, AComboShowsATextThatIsNoItem) {
  StartOn(screen::kManageLinks);
  auto& combo = test.Find<QComboBox>("Combo1");
  test.Form().Combo1.SetText("elsewhere");
  test.Settle();
  EXPECT_EQ(combo.accessibleDescription(), "elsewhere");
  EXPECT_EQ(combo.currentIndex(), -1);
  const QImage before = combo.grab().toImage();
  test.Form().Combo1.SetText("");
  test.Settle();
  EXPECT_NE(combo.grab().toImage(), before);

  combo.setFocus();
  test.Press(Qt::Key_Down);
  test.Press(Qt::Key_Down);
  EXPECT_EQ(test.Form().Combo1.Text(), "B");
  EXPECT_EQ(test.Find<QLineEdit>("Text1_2").text(), "http://h/B");
  test.Form().Combo1.RemoveItem(1);
  test.Settle();
  EXPECT_EQ(combo.count(), 1);
  EXPECT_EQ(test.Form().Combo1.Text(), "B");
}

TEST_F(WindowControlsTest, ActionLabelsActByKeyAsByMouse) {
  StartOn(screen::kManageLinks);
  Label& pending = test.Form().Label2[action::kPending];
  for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
    pending.SetCaption("");
    test.Find("Label2_1").setFocus(Qt::TabFocusReason);
    EXPECT_EQ(test.Form().Label2[action::kAdd].BackColor(), kGreen);
    test.Press(key);
    EXPECT_EQ(pending.Caption(), "ADD");
  }
  test.Press(Qt::Key_Tab);
  EXPECT_EQ(test.Form().Label2[action::kAdd].BackColor(), kWhite);
  test.Form().ListView3.SetValue(detail::kAccountStatus, 1, "Account Suspended");
  test.Hover("Label2_2");
  EXPECT_EQ(test.Form().Label2[action::kRemove].BackColor(), kRed);
  test.Form().Combo1.SetText("A");
  test.Click("Label2_2");
  EXPECT_EQ(pending.Caption(), "ADD") << "a red label does nothing";
}

TEST_F(WindowControlsTest, ListsFollowARefresh) {
  StartOn(screen::kCurrentStatus);
  test.server.Answer(test::kCounters, "<P>3 A.zip\n<P>40 B.zip\n");
  test.Press(Qt::Key_F5);
  test.server.Answer(test::kCounters, "<P>5 A.zip\n<P>40 B.zip\n");
  test.Press(Qt::Key_F5);
  EXPECT_EQ(Cell("ListView1", 0, 0) + Cell("ListView1", 0, 1) + Cell("ListView1", 0, 2), "A52");
  EXPECT_EQ(Cell("ListView1", 1, 3), "http://h/B");
  test.Press(Qt::Key_4, Qt::ControlModifier);
  EXPECT_EQ(Cell("ListView3", 0, 0) + Cell("ListView3", 5, 0) + Cell("ListView3", 5, 1),
            "Service openFiles monitored2");
  EXPECT_EQ(Cell("ListView3", 8, 1), "Normal");
}

TEST_F(WindowControlsTest, TheMonthFollowsItsSelectors) {
  StartOn(screen::kPreferences);
  test.ClickItem("mnuWindDaily");
  auto& grid = test.Find<QTableView>("ListView2");
  EXPECT_EQ(grid.model()->rowCount(), 24);
  EXPECT_EQ(grid.model()->columnCount(), 32);
  EXPECT_EQ(test.Find<QLabel>("Label5_2").text(), "Selected Time: 00 PM");
  QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                    grid.visualRect(grid.model()->index(9, 3)).center());
  test.Settle();
  EXPECT_EQ(test.Find<QLabel>("Label5_2").text(), "Selected Time: 09 AM");
  QTest::keyClick(&test.Find("Combo3"), Qt::Key_Down);
  test.Settle();
  EXPECT_EQ(test.Form().Combo3.Text(), "Feb");
  EXPECT_EQ(grid.model()->columnCount(), 31);
  for (const auto& cell : {std::pair(0, 1), std::pair(23, 30)}) {
    EXPECT_TRUE(grid.viewport()->rect().contains(
        grid.visualRect(grid.model()->index(cell.first, cell.second))));
  }
}

TEST_F(WindowControlsTest, ManyRowsAreShownInOnePass) {
  StartOn(screen::kCurrentStatus);
  auto& list = test.Find<QTableView>("ListView1");
  const auto widgets = test.window.findChildren<QObject*>().size();
  const QSignalSpy inserted(list.model(), &QAbstractItemModel::rowsInserted);
  const QSignalSpy changed(list.model(), &QAbstractItemModel::dataChanged);
  const QSignalSpy reset(list.model(), &QAbstractItemModel::modelReset);
  for (int row = test.Form().ListView1.RowCount() + 1; row <= kManyRows; ++row) {
    test.Form().ListView1.AddRow("row " + std::to_string(row));
    test.Form().Combo1.AddItem("row " + std::to_string(row));
  }
  test.Settle();
  EXPECT_EQ(list.model()->rowCount(), kManyRows);
  EXPECT_EQ(test.Find<QComboBox>("Combo1").count(), kManyRows);
  for (int row = 1; row <= kManyRows; ++row) {
    test.Form().ListView1.SetValue(row, 1, std::to_string(row));
  }
  test.Settle();
  EXPECT_EQ(Cell("ListView1", kManyRows - 1, 1), std::to_string(kManyRows));
  EXPECT_EQ(inserted.size(), 1);
  EXPECT_LE(changed.size(), 2);
  EXPECT_EQ(reset.size(), 0);
  EXPECT_EQ(test.window.findChildren<QObject*>().size(), widgets);
  QTest::keyClick(&list, Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(test.Form().ListView1.SelectedRow(), kManyRows);
}

TEST_F(WindowControlsTest, CopiesTextSeparatedByTabs) {
  StartOn(screen::kCurrentStatus);
  auto& list = test.Find<QTableView>("ListView1");
  test.Form().ListView1.SetValue(1, 1, "5");
  test.Form().ListView1.SetValue(2, 1, "7");
  test.Settle();
  list.setFocus();
  list.selectAll();
  test.Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Clipboard(), "A\t5\t\thttp://h/A\nB\t7\t\thttp://h/B\n");

  test.ClickItem("mnuWindDaily");
  test.Form().ListView2.SetValue(10, 2, "12");
  test.Settle();
  test.Find("ListView2").setFocus();
  test.Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_TRUE(Clipboard().starts_with("Jan, 2026\t1\t2\t3\t")) << Clipboard().substr(0, 40);
  EXPECT_NE(Clipboard().find("\n9\t\t12\t\t"), std::string::npos);
  EXPECT_EQ(std::ranges::count(Clipboard(), '\n'), 25);

  test.ClickItem("mnuExport");
  test.Click("CopyText");
  EXPECT_EQ(Clipboard(),
            QString::fromStdString(test.Form().Text4.Text()).remove(QChar(0x0D)).toStdString());
  EXPECT_EQ(test.Find<QPlainTextEdit>("Text4").toPlainText().toStdString().find(" -- Tallyo"), 0U);
}

TEST_F(WindowControlsTest, CheckedLinksOfAPageAreTakenOver) {
  StartOn(screen::kImportLinks);
  for (const char* const link : {"http://h/one.zip", "http://h/two.zip"}) {
    test.Form().List1.AddLine(link);
  }
  test.Settle();
  auto& list = test.Find<QListView>("List1");
  const QModelIndex second = list.model()->index(1, 0);
  list.setFocus();
  list.setCurrentIndex(second);
  QTest::keyClick(&list, Qt::Key_Space);
  EXPECT_TRUE(test.Form().List1.Lines()[1].checked);
  EXPECT_FALSE(test.Form().List1.Lines()[0].checked);
  test.Click("Command2");
  EXPECT_TRUE(test.Find("Picture1_0").isVisible());
  EXPECT_EQ(test.Find<QLineEdit>("Text1_3").text(), "two.zip");
  EXPECT_EQ(test.Focused().objectName(), "Text1_4");
}

TEST_F(WindowControlsTest, TheWindowIsAsLargeAsItsScreenAsks) {
  StartOn(screen::kManageLinks);
  for (int screen = 0; screen < static_cast<int>(screen::kCount); ++screen) {
    test.Show(screen);
    const Place& panel = test.Form().Picture1.at(static_cast<std::size_t>(screen)).Where();
    const QSize expected((panel.width + 600) / 15, (panel.top + panel.height + 1200) / 15);
    EXPECT_EQ(test.window.size(), expected) << screen;
    EXPECT_EQ(test.Find(QString("Picture1_%1").arg(screen)).geometry(),
              QRect(12, 16, panel.width / 15, panel.height / 15))
        << screen;
    for (const QWidget* const child : test.window.findChildren<QWidget*>()) {
      const QWidget* const parent = child->parentWidget();
      if (child->isVisible() && !child->isWindow() && parent->objectName().startsWith("Picture")) {
        EXPECT_TRUE(parent->rect().contains(child->geometry()))
            << child->objectName().toStdString() << " on " << screen;
      }
    }
  }
}

}  // namespace
}  // namespace tallyo
