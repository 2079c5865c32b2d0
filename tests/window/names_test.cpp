#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <set>

#include "tests/window/window_under_test.h"

namespace tallyo {
namespace {

using test::WindowUnderTest;

QString Spoken(QWidget& widget) {
  return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name);
}

QStringList ControlNames() {
  QStringList names{"Combo1", "Combo2", "Combo3", "ListView1", "ListView2", "ListView3", "Text2",
                    "Text3",  "Text4",  "List1",  "Command2",  "WB1",       "Label8"};
  const std::vector<std::pair<const char*, int>> arrays{
      {"Text1", 6},  {"Label2", 6}, {"Command1", 2}, {"Check1", 6},
      {"Label4", 2}, {"Label5", 3}, {"Picture1", 9}};
  for (const auto& [name, count] : arrays) {
    for (int i = 0; i < count; ++i) {
      names += QString("%1_%2").arg(name).arg(i);
    }
  }
  return names;
}

TEST(WindowNames, EveryControlIsFoundByItsName) {
  WindowUnderTest test;
  for (const QString& name : ControlNames()) {
    EXPECT_EQ(test.window.findChildren<QWidget*>(name).size(), 1) << name.toStdString();
  }
  for (const MenuItem* const menu : test.Form().MenuBar()) {
    EXPECT_NE(test.window.findChild<QAction*>(QString::fromStdString(menu->Name())), nullptr);
    for (const MenuItem* const item : menu->Items()) {
      const auto* const action =
          test.window.findChild<QAction*>(QString::fromStdString(item->Name()));
      ASSERT_NE(action, nullptr) << item->Name();
      EXPECT_EQ(action->isSeparator(), item->IsSeparator()) << item->Name();
    }
  }
}

TEST(WindowNames, WhateverTakesTheFocusSaysWhatItIs) {
  WindowUnderTest test;
  test.GiveAccount();
  test.GiveLink(1, "A");
  test.Start();
  for (int screen = 0; screen < static_cast<int>(screen::kCount); ++screen) {
    test.Show(screen);
    for (QWidget* const widget : test.window.findChildren<QWidget*>()) {
      if (widget->focusPolicy() != Qt::NoFocus && Spoken(*widget).trimmed().isEmpty()) {
        ADD_FAILURE() << "no name: " << widget->metaObject()->className() << " "
                      << widget->objectName().toStdString() << " in "
                      << widget->parentWidget()->objectName().toStdString();
      }
    }
  }
  EXPECT_EQ(Spoken(test.Find("Command1_1")), "Submit");
  EXPECT_EQ(Spoken(test.Find("Label2_1")), "ADD");
}

TEST(WindowNames, NoTwoAccessKeysOfAScreenAreTheSame) {
  WindowUnderTest test;
  test.Start();
  for (int screen = 0; screen < static_cast<int>(screen::kCount); ++screen) {
    test.Show(screen);
    QStringList captions;
    for (const QAction* const menu : test.window.menuBar()->actions()) {
      captions += menu->text();
    }
    for (const auto* const button : test.window.findChildren<QAbstractButton*>()) {
      captions += button->isVisible() ? button->text() : QString();
    }
    std::set<QString> keys;
    for (const QString& caption : captions) {
      const QString key = QKeySequence::mnemonic(caption).toString();
      EXPECT_TRUE(key.isEmpty() || keys.insert(key).second) << screen << caption.toStdString();
    }
  }
}

TEST(WindowNames, LabelsBelongToTheFieldsThatTheyName) {
  WindowUnderTest test;
  test.Start();
  for (const char* const name : {"Text1_0", "Text1_1", "Text1_2", "Text1_3", "Text1_4", "Text1_5",
                                 "Text2", "Text3", "Combo1", "List1"}) {
    const QWidget& field = test.Find(name);
    const auto labels = test.window.findChildren<QLabel*>();
    const auto label = std::ranges::find(labels, &field, &QLabel::buddy);
    ASSERT_NE(label, labels.end()) << name;
    EXPECT_EQ((*label)->text(), field.accessibleName()) << name;
    EXPECT_FALSE((*label)->text().isEmpty()) << name;
  }
  for (const QLabel* const label : test.Find("Picture1_2").findChildren<QLabel*>()) {
    EXPECT_NE(label->buddy(), nullptr) << label->text().toStdString();
  }
}

TEST(WindowNames, CellsOfTheMonthSpeak) {
  WindowUnderTest test;
  test.clock.Set(2026, 11, 22, 10, 0, 0);
  test.Start();
  test.ClickItem("mnuWindDaily");
  test.Form().ListView2.SetValue(10, 15, "12");
  test.Form().ListView2.SetValue(1, 1, "1");
  test.Settle();
  auto& grid = test.Find<QTableView>("ListView2");
  QAccessibleTableInterface* const cells =
      QAccessible::queryAccessibleInterface(&grid)->tableInterface();
  const auto toolTip = [&](int row, int column) {
    return grid.model()->index(row, column).data(Qt::ToolTipRole).toString();
  };
  EXPECT_EQ(cells->cellAt(9, 15)->text(QAccessible::Name), "15, 09 hours, 12");
  EXPECT_EQ(toolTip(9, 15), "15 Nov, 09:00 to 10:00: 12 hits");
  EXPECT_EQ(toolTip(0, 1), "1 Nov, 00:00 to 01:00: 1 hit");
  EXPECT_EQ(toolTip(23, 30), "30 Nov, 23:00 to 24:00: 0 hits");
  EXPECT_EQ(cells->cellAt(23, 30)->text(QAccessible::Name), "30, 23 hours, nothing");
  auto& sums = test.Find<QTableView>("DaySums");
  EXPECT_EQ(sums.model()->index(0, 15).data().toString(), "12");
  EXPECT_EQ(test.Find<QLabel>("MonthSum").text().toStdString(), "Nov: 13 hits");
}

}  // namespace
}  // namespace tallyo
