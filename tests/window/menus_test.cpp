#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QComboBox>

#include "tests/window/window_under_test.h"

namespace tallyo {
namespace {

using test::WindowUnderTest;

class WindowMenusTest : public testing::Test {
 protected:
  void StartWithLinks(int count) {
    test.GiveAccount();
    for (int number = 1; number <= count; ++number) {
      test.GiveLink(number, std::string(1, static_cast<char>('A' + number - 1)));
    }
    test.server.Answer(test::kCounters, "<P>12 A.zip\n");
    test.Start();
  }

  void ExpectItemsAsTheModelSays() {
    test.Settle();
    for (const MenuItem* const menu : test.Form().MenuBar()) {
      for (const MenuItem* const item : menu->Items()) {
        if (!item->IsSeparator()) {
          const auto& action = test.Find<QAction>(QString::fromStdString(item->Name()));
          EXPECT_EQ(action.isEnabled(), item->Enabled()) << item->Name();
          EXPECT_EQ(action.text().toStdString(), item->Caption());
        }
      }
    }
  }

  [[nodiscard]] bool Shows(int screen) {
    for (int i = 0; i < static_cast<int>(screen::kCount); ++i) {
      if (test.Find(QString("Picture1_%1").arg(i)).isVisible() != (i == screen)) {
        return false;
      }
    }
    return test.program.state.CurrentScreen == screen;
  }

  WindowUnderTest test;
};

TEST_F(WindowMenusTest, ItemsShowTheirScreens) {
  StartWithLinks(1);
  test.program.manageLinks.Open();
  test.Settle();
  const std::vector<std::pair<const char*, int>> items = {
      {"mnuPrefs", screen::kPreferences},
      {"mnuManage", screen::kManageLinks},
      {"mnuMakeLink", screen::kText},
      {"mnuWindDaily", screen::kDailyStatus},
      {"mnuWindCurrent", screen::kCurrentStatus},
      {"mnuExport", screen::kText},
      {"mnuServiceInfo", screen::kServiceInfo},
      {"mnuSignup", screen::kWebPage},
      {"mnuExportAll", screen::kText},
      {"mnuUpgrade", screen::kWebPage},
      {"mnuManage", screen::kManageLinks},
      {"mnuScrnImport", screen::kImportLinks},
      {"mnuSupport", screen::kWebPage},
      {"mnuWindCurrent", screen::kCurrentStatus},
      {"mnuAbout", screen::kWebPage}};
  for (const auto& [item, shown] : items) {
    test.ClickItem(item);
    EXPECT_TRUE(Shows(shown)) << item;
    EXPECT_TRUE(test.Find(QString("Picture1_%1").arg(shown)).isAncestorOf(&test.Focused())) << item;
    ExpectItemsAsTheModelSays();
  }
  EXPECT_EQ(test.Form().WB1.Address(), (test.folder.Path() / "intro.sht").string());
  for (const auto& [key, shown] :
       {std::pair(Qt::Key_1, screen::kDailyStatus), std::pair(Qt::Key_2, screen::kCurrentStatus),
        std::pair(Qt::Key_4, screen::kServiceInfo), std::pair(Qt::Key_3, screen::kImportLinks)}) {
    test.Press(key, Qt::ControlModifier);
    EXPECT_TRUE(Shows(shown));
  }
}

TEST_F(WindowMenusTest, ItemsDoTheirWork) {
  StartWithLinks(1);
  test.ClickItem("mnuViewStats");
  EXPECT_EQ(test.Form().ListView1.Value(1, 1), "12");
  test.ClickItem("mnuHelpDoc");
  EXPECT_THAT(test.shell.opened, testing::ElementsAre(test.folder.Path() / "tlyo.pdf"));
  test.ClickItem("mnuExportAll");
  EXPECT_NE(test.FileText("mysite.export"), "(no file)");
  QTimer::singleShot(0, &test.window, [this] { test.ClickItem("mnuQuit"); });
  EXPECT_EQ(test.RunToEnd(), 0);
  EXPECT_TRUE(test.program.Ended());
  EXPECT_EQ(test.FileText("Data/LastRead.dat"), "A=12,\r\n");
}

TEST_F(WindowMenusTest, AConfigurationGoesToAnotherMachine) {
  StartWithLinks(2);
  test.ClickItem("mnuViewStats");
  test.ClickItem("mnuExportAll");
  WindowUnderTest other;
  std::filesystem::copy(test.folder.Path() / "mysite.export", other.folder.Path());
  other.Start();
  other.ClickItem("mnuManage");
  other.Enter("Text1_0", "Acme");
  other.Enter("Text1_1", "mysite");
  other.ClickItem("mnuImportAll");
  EXPECT_EQ(other.Setting(names::kUser) + other.Setting(names::kAccount), "Acmemysite");
  const auto& links = other.Find<QComboBox>("Combo1");
  EXPECT_EQ((links.itemText(0) + links.itemText(1)).toStdString(), "AB");
  EXPECT_TRUE(other.boxes.Shown().empty());
}

TEST_F(WindowMenusTest, OpeningTheFileMenuOffersWhatMayBeDone) {
  test.GiveAccount(false);
  test.Start();
  const auto offered = [this](const char* item) {
    QMenu* const menu = test.OpenMenu(item);
    const bool enabled = test.Find<QAction>(item).isEnabled();
    test.Leave(*menu);
    ExpectItemsAsTheModelSays();
    return enabled;
  };
  EXPECT_FALSE(offered("mnuSave"));
  test.Form().Text1[field::kCompany].SetText("Acme");
  test.Form().Text1[field::kAccount].SetText("mysite");
  EXPECT_TRUE(offered("mnuSave"));
  EXPECT_TRUE(offered("mnuImportAll"));
  test.Form().Combo1.AddItem("A");
  EXPECT_FALSE(offered("mnuSave"));
  EXPECT_FALSE(offered("mnuImportAll"));
  test.ClickItem("mnuSave");  // a disabled item does nothing
  EXPECT_EQ(test.Setting(names::kUser), "");
}

TEST_F(WindowMenusTest, NamesTheUserAtTheEndOfTheBar) {
  StartWithLinks(1);
  auto& title = test.Find<QAction>("TmnuDisTitle");
  EXPECT_EQ(title.text().trimmed().toStdString().substr(0, 7), "http://");
  EXPECT_FALSE(title.isEnabled());
  test.ClickItem("mnuServiceInfo");
  EXPECT_EQ(title.text().trimmed(), "Tallyo  user: Acme, account: mysite");
}

}  // namespace
}  // namespace tallyo
