#include <gtest/gtest.h>

#include "tests/window/window_under_test.h"

namespace tallyo {
namespace {

using test::WindowUnderTest;

class WindowMenusTest : public testing::Test {
 protected:
  void ExpectItemsAsTheModelSays() {
    test.Settle();
    for (const MenuItem* const menu : test.Form().MenuBar()) {
      for (const MenuItem* const item : menu->Items()) {
        const auto& action = test.Find<QAction>(QString::fromStdString(item->Name()));
        EXPECT_EQ(action.isSeparator(), item->IsSeparator()) << item->Name();
        EXPECT_EQ(action.isEnabled(), item->Enabled()) << item->Name();
        EXPECT_EQ(action.text().toStdString(), item->Caption());
      }
    }
  }

  // This screen alone, with the focus in it.
  void ExpectOn(int screen) {
    for (int i = 0; i < static_cast<int>(screen::kCount); ++i) {
      EXPECT_EQ(test.Find(QString("Picture1_%1").arg(i)).isVisible(), i == screen) << i;
    }
    EXPECT_TRUE(test.Find(QString("Picture1_%1").arg(screen)).isAncestorOf(&test.Focused()));
  }

  WindowUnderTest test;
};

TEST_F(WindowMenusTest, ItemsAndShortcutsShowTheirScreens) {
  test.GiveAccount();
  test.GiveLinks({"A"});
  test.Start();
  test.Form().Combo1.Choose(0);  // without a path no links can be imported
  auto& title = test.Find<QAction>("TmnuDisTitle");
  EXPECT_EQ(title.text().trimmed().toStdString().substr(0, 7), "http://");
  EXPECT_FALSE(title.isEnabled());
  const std::vector<std::pair<const char*, int>> items = {
      {"mnuManage", screen::kManageLinks},
      {"mnuPrefs", screen::kPreferences},
      {"mnuMakeLink", screen::kText},
      {"mnuWindDaily", screen::kDailyStatus},
      {"mnuWindCurrent", screen::kCurrentStatus},
      {"mnuExport", screen::kText},
      {"mnuServiceInfo", screen::kServiceInfo},
      {"mnuSignup", screen::kWebPage},
      {"mnuManage", screen::kManageLinks},
      {"mnuScrnImport", screen::kImportLinks},
      {"mnuAbout", screen::kWebPage}};
  for (const auto& [item, shown] : items) {
    SCOPED_TRACE(item);
    test.ClickItem(item);
    ExpectOn(shown);
    ExpectItemsAsTheModelSays();
  }
  EXPECT_EQ(title.text().trimmed(), "Tallyo  user: Acme, account: mysite");
  for (const auto& [key, shown] :
       {std::pair(Qt::Key_1, screen::kDailyStatus), std::pair(Qt::Key_2, screen::kCurrentStatus),
        std::pair(Qt::Key_4, screen::kServiceInfo), std::pair(Qt::Key_3, screen::kImportLinks)}) {
    test.Press(key, Qt::ControlModifier);
    ExpectOn(shown);
  }
}

TEST_F(WindowMenusTest, OpeningTheFileMenuOffersWhatMayBeDone) {
  test.Start();
  const auto offered = [this](const char* item) {
    QMenu* const menu = test.OpenMenu(item);
    const bool enabled = test.Find<QAction>(item).isEnabled();
    test.Leave(*menu);
    ExpectItemsAsTheModelSays();
    return enabled;
  };
  EXPECT_FALSE(offered("mnuSave"));
  test.ClickItem("mnuSave");  // a disabled item does nothing
  EXPECT_TRUE(test.server.Requests().empty());
  test.Form().Text1[field::kCompany].SetText("Acme");
  test.Form().Text1[field::kAccount].SetText("mysite");
  EXPECT_TRUE(offered("mnuSave"));
  EXPECT_TRUE(offered("mnuImportAll"));
  test.Form().Combo1.AddItem("A");
  EXPECT_FALSE(offered("mnuImportAll"));
}

}  // namespace
}  // namespace tallyo
