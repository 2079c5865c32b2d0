#include <gtest/gtest.h>

#include <QFileDialog>
#include <fstream>

#include "tests/window/url_opener.h"
#include "tests/window/window_under_test.h"
#include "ui/qt/qt_shell.h"

namespace tallyo {
namespace {

using test::TempFolder;
using test::WindowUnderTest;

TEST(LogonEntry, ComesAndGoesAmongThePersonsOwn) {
  const TempFolder config;
  qputenv("XDG_CONFIG_HOME", config.Path().c_str());
  const std::vector<std::string> command = {R"(/opt/a b/100%/$HOME/"q"/`id`/\n\\/tallyo)",
                                            "--app-dir", "/d%f\nName=x"};
  QtShell shell(OwnDocuments(config.Path()), LogonEntry(command));
  const std::filesystem::path file = config.Path() / "autostart" / "tallyo.desktop";
  shell.RunAtLogon(true);
  const std::string entry = PosixFiles().Read(file);
  EXPECT_TRUE(entry.starts_with("[Desktop Entry]\nType=Application\nName=Tallyo\n"));
  const std::string line =  // escaped as quoted words first, then as the value of a key
      R"X(Exec="/opt/a b/100%%/\\$HOME/\\"q\\"/\\`id\\`/\\\\n\\\\\\\\/tallyo" "--app-dir")X"
      R"X( "/d%%f\nName=x")X";
  EXPECT_NE(entry.find("\n" + line + "\n"), std::string::npos) << entry;
  std::ofstream(file, std::ios::app) << "Hidden=true\n";  // as desktops switch an entry off
  shell.RunAtLogon(true);
  EXPECT_NE(PosixFiles().Read(file).find("Hidden=true"), std::string::npos);
  shell.RunAtLogon(false);
  EXPECT_FALSE(std::filesystem::exists(file));
  std::filesystem::remove(file.parent_path());
  std::ofstream(file.parent_path()) << "no folder";
  shell.RunAtLogon(true);  // changes nothing and harms nobody
  EXPECT_TRUE(std::filesystem::is_regular_file(file.parent_path()));
  qunsetenv("XDG_CONFIG_HOME");
}

TEST(OwnDocuments, AreTakenFromTheAppDirFirst) {
  const TempFolder appDir;
  const TempFolder installed;
  const OwnDocuments documents(appDir.Path() / "", installed.Path());
  test::UrlOpener desktop("file");
  QtShell shell(documents, LogonEntry({}));
  for (const std::filesystem::path& folder : {installed.Path(), appDir.Path()}) {
    std::ofstream(folder / "tlyo.pdf") << "manual";
    shell.Open(appDir.Path() / "tlyo.pdf");
    EXPECT_EQ(desktop.TakeLast().toLocalFile().toStdString(), folder / "tlyo.pdf");
  }
  for (const std::filesystem::path& other : {appDir.Path() / "intro.sht", {"/etc/tlyo.pdf"}}) {
    EXPECT_EQ(documents.Find(other), other);
  }
  EXPECT_FALSE(documents.Hold(appDir.Path()));
  EXPECT_FALSE(documents.Hold(installed.Path() / ".." / "elsewhere"));
}

class WindowDesktopTest : public testing::Test {
 protected:
  // Saves the text with this name for it.
  void SaveAs(const std::filesystem::path& file) {
    test.WhenOpen<QFileDialog>([file](QFileDialog& dialog) {
      dialog.selectFile(QString::fromStdString(file.string()));
      static_cast<QDialog&>(dialog).accept();
    });
    test.Click("SaveTextAs");
  }

  WindowUnderTest test;
};

TEST_F(WindowDesktopTest, SavesTheTextAsItStandsAndEndsWhileAFileIsChosen) {
  test.GiveLinks({"caf\xC3\xA9"});
  test.Start();
  test.ClickItem("mnuExport");
  const std::string text = test.Form().Text4.Text();
  EXPECT_NE(text.find("\r\n"), std::string::npos);
  SaveAs(test.folder.Path() / "out.txt");
  EXPECT_EQ(test.FileText("out.txt"), text);
  std::string said;
  test.WhenOpen<QMessageBox>([&said](QMessageBox& box) {
    said = box.text().toStdString();
    QTest::keyClick(&box, Qt::Key_Return);
  });
  SaveAs(test.folder.Path() / "missing" / "<b>.txt");
  EXPECT_NE(said.find("cannot be written"), std::string::npos);
  EXPECT_NE(said.find("<b>.txt"), std::string::npos);

  test.WhenOpen<QFileDialog>([this](QFileDialog& /*dialog*/) { test.window.Quit(); });
  EXPECT_EQ(test.RunToEnd([this] { test.Click("SaveTextAs"); }), 0);
  EXPECT_EQ(test.LastRead(), "caf\xC3\xA9=,\r\n");
}

TEST_F(WindowDesktopTest, StartsMinimizedAndComesForward) {
  test.Set(names::kStartPos, "1");
  ASSERT_TRUE(test.window.Start());
  test.Settle();
  EXPECT_TRUE(test.window.isVisible());
  EXPECT_TRUE(test.window.isMinimized());
  test.window.ComeForward();
  test.Show(screen::kPreferences);
  EXPECT_FALSE(test.window.isMinimized());
  EXPECT_EQ(test.Form().Frame.State(), WindowState::Normal);
  const Place& panel = test.Form().Picture1[screen::kPreferences].Where();
  EXPECT_EQ(test.window.width(), (panel.width + 600) / 15);
}

TEST_F(WindowDesktopTest, TakesWhatWasTypedWhenItIsClosed) {
  test.Start();
  test.Show(screen::kPreferences);
  test.Click("Text2");
  test.Press(Qt::Key_A, Qt::ControlModifier);
  test.Press(Qt::Key_4);
  EXPECT_EQ(test.RunToEnd([this] { test.window.close(); }), 0);
  EXPECT_EQ(test.Setting(names::kUpdDefTime), "4");
}

}  // namespace
}  // namespace tallyo
