#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QLabel>
#include <QTableView>
#include <set>

#include "tests/window/window_under_test.h"

namespace tallyo {
namespace {

using test::WindowUnderTest;

QString Spoken(QWidget& widget) {
  return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name);
}

TEST(WindowNames, WhateverTakesTheFocusSaysWhatItIsAndNoAccessKeyStandsForTwo) {
  WindowUnderTest test;
  test.GiveAccount();
  test.GiveLinks({"A"});
  test.Start();
  for (int screen = 0; screen < static_cast<int>(screen::kCount); ++screen) {
    test.Show(screen);
    for (QWidget* const widget : test.window.findChildren<QWidget*>()) {
      if (widget->focusPolicy() != Qt::NoFocus &&
          (Spoken(*widget).trimmed().isEmpty() ||
           (widget->window() == &test.window && widget->objectName().isEmpty()))) {
        ADD_FAILURE() << "no name: " << widget->metaObject()->className() << " "
                      << widget->objectName().toStdString() << " in "
                      << widget->parentWidget()->objectName().toStdString();
      }
    }
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
  EXPECT_EQ(Spoken(test.Find("Command1_1")), "Submit");
  EXPECT_EQ(Spoken(test.Find("Label2_1")), "ADD");
}

TEST(WindowNames, LabelsBelongToTheFieldsThatTheyName) {
  WindowUnderTest test;
  test.Start();
  const auto labels = test.window.findChildren<QLabel*>();
  for (const char* const name : {"Text1_0", "Text1_1", "Text1_2", "Text1_3", "Text1_4", "Text1_5",
                                 "Text2", "Text3", "Combo1", "List1"}) {
    const QWidget& field = test.Find(name);
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
  const std::tuple<int, int, const char*, const char*> cells[] = {
      {9, 15, "15, 09 hours, 12", "15 Nov, 09:00 to 10:00: 12 hits"},
      {0, 1, "1, 00 hours, 1", "1 Nov, 00:00 to 01:00: 1 hit"},
      {23, 30, "30, 23 hours, nothing", "30 Nov, 23:00 to 24:00: 0 hits"}};
  for (const auto& [row, column, spoken, toolTip] : cells) {
    auto* const table = QAccessible::queryAccessibleInterface(&grid)->tableInterface();
    EXPECT_EQ(table->cellAt(row, column)->text(QAccessible::Name), spoken);
    EXPECT_EQ(grid.model()->index(row, column).data(Qt::ToolTipRole).toString(), toolTip);
  }
  EXPECT_EQ(test.Find<QTableView>("DaySums").model()->index(0, 15).data().toString(), "12");
  EXPECT_EQ(test.Find<QLabel>("MonthSum").text().toStdString(), "Nov: 13 hits");
}

}  // namespace
}  // namespace tallyo
