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
    test.GiveLinks({"A", "B"});
    test.Start();
    test.Show(screen);
  }
  [[nodiscard]] std::string Cell(const char* view, int row, int column) {
    return test.Find<QTableView>(view).model()->index(row, column).data().toString().toStdString();
  }
  // What the widget, which has the focus then, puts on the clipboard.
  [[nodiscard]] std::string Copied(QWidget& widget) {
    widget.setFocus();
    test.Press(Qt::Key_C, Qt::ControlModifier);
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
  }
  EXPECT_TRUE(test.P().state.FieldTyped);
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
    QTest::mouseClick(&widget, Qt::LeftButton, {}, {8, widget.height() / 2});
    test.Settle();
    EXPECT_EQ(box.Value(), box.Enabled() ? 1 : 0) << i;
    EXPECT_EQ(widget.isChecked(), box.Enabled()) << i;
    for (const auto& [value, state] :
         {std::pair(2, Qt::PartiallyChecked), std::pair(0, Qt::Unchecked)}) {
      box.SetValue(value);
      test.Settle();
      EXPECT_EQ(widget.checkState(), state) << i;
    }
  }
}

TEST_F(WindowControlsTest, LabelsOfAllScreensComeAndGo) {
  StartOn(screen::kPreferences);
  test.Form().Label4[0].SetCaption("8");
  test.Form().Label8.SetCaption("Form reseted");
  EXPECT_FALSE(test.Find("Label4_0").isVisible());
  QTest::keyClick(&test.Find("Check1_4"), Qt::Key_Space);
  for (const int screen : {screen::kPreferences, screen::kDailyStatus}) {
    test.Show(screen);
    EXPECT_TRUE(test.Find("Label4_0").isVisible());
    EXPECT_FALSE(test.Find("Label5_0").isVisible());
    EXPECT_TRUE(test.window.rect().contains(test.Find("Label4_0").mapTo(&test.window, QPoint())));
    EXPECT_EQ(test.Find<QLabel>("Label4_0").text(), "8");
    EXPECT_EQ(test.Find<QLabel>("Label8").text(), "Form reseted");
  }
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
  pending.SetCaption("");
  test.Click("Label2_1");
  EXPECT_EQ(pending.Caption(), "ADD");
  test.Press(Qt::Key_Tab);
  EXPECT_EQ(test.Form().Label2[action::kAdd].BackColor(), kWhite);
  test.Form().ListView3.SetValue(detail::kAccountStatus, 1, "Account Suspended");
  test.Hover("Label2_2");
  EXPECT_EQ(test.Form().Label2[action::kRemove].BackColor(), kRed);
}

TEST_F(WindowControlsTest, TheMonthFollowsItsSelectors) {
  StartOn(screen::kPreferences);
  test.ClickItem("mnuWindDaily");
  auto& grid = test.Find<QTableView>("ListView2");
  EXPECT_EQ(grid.model()->columnCount(), 32);
  EXPECT_EQ(test.Find<QLabel>("Label5_2").text(), "Selected Time: 00 PM");
  QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                    grid.visualRect(grid.model()->index(9, 3)).center());
  test.Settle();
  EXPECT_EQ(test.Find<QLabel>("Label5_2").text(), "Selected Time: 09 AM");
  EXPECT_EQ(test.Form().ListView2.SelectedRow(), 10);
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
}

TEST_F(WindowControlsTest, ListsShowTheirValuesAndCopyThemSeparatedByTabs) {
  StartOn(screen::kCurrentStatus);
  auto& list = test.Find<QTableView>("ListView1");
  test.Form().ListView1.SetValue(1, 1, "5");
  test.Form().ListView1.SetValue(2, 1, "7");
  test.Settle();
  list.selectAll();
  EXPECT_EQ(Copied(list), "A\t5\t\thttp://h/A\nB\t7\t\thttp://h/B\n");

  test.ClickItem("mnuWindDaily");
  test.Form().ListView2.SetValue(10, 2, "12");
  test.Settle();
  const std::string month = Copied(test.Find("ListView2"));
  EXPECT_TRUE(month.starts_with("Jan, 2026\t1\t2\t3\t")) << month.substr(0, 40);
  EXPECT_NE(month.find("\n9\t\t12\t\t"), std::string::npos);
  EXPECT_EQ(std::ranges::count(month, '\n'), 25);

  test.ClickItem("mnuServiceInfo");
  EXPECT_EQ(Cell("ListView3", 5, 0) + Cell("ListView3", 5, 1), "Files monitored2");
  test.ClickItem("mnuExport");
  EXPECT_EQ(test.Find<QPlainTextEdit>("Text4").toPlainText().toStdString().find(" -- Tallyo"), 0U);
  test.Click("CopyText");
  EXPECT_EQ(QApplication::clipboard()->text(),
            QString::fromStdString(test.Form().Text4.Text()).remove(QChar(0x0D)));
}

TEST_F(WindowControlsTest, CheckedLinksOfAPageAreTakenOver) {
  StartOn(screen::kImportLinks);
  for (const char* const link : {"http://h/one.zip", "http://h/two.zip"}) {
    test.Form().List1.AddLine(link);
  }
  test.Settle();
  auto& list = test.Find<QListView>("List1");
  list.setFocus();
  list.setCurrentIndex(list.model()->index(1, 0));
  QTest::keyClick(&list, Qt::Key_Space);
  EXPECT_TRUE(test.Form().List1.Lines()[1].checked);
  EXPECT_FALSE(test.Form().List1.Lines()[0].checked);
  test.Click("Command2");
  EXPECT_TRUE(test.Find("Picture1_0").isVisible());
  EXPECT_EQ(test.Find<QLineEdit>("Text1_3").text(), "two.zip");
  EXPECT_EQ(test.Focused().objectName(), "Text1_4");
}

}  // namespace
}  // namespace tallyo
