#include <gtest/gtest.h>

#include <QFileDialog>
#include <QTextBrowser>
#include <fstream>

#include "tests/window/url_opener.h"
#include "tests/window/window_under_test.h"
#include "ui/qt/qt_shell.h"

namespace tallyo {
namespace {

using test::TempFolder;
using test::WindowUnderTest;

// What a desktop makes of the entry's command: it undoes the escapes of the value first, then those
// of the quoted words.
std::vector<std::string> CommandOf(const std::string& entry) {
  std::string line;
  for (std::size_t i = entry.find("\nExec=") + 6; entry.at(i) != '\n'; ++i) {
    const bool escaped = entry[i] == '\\';
    i += escaped ? 1 : 0;
    line += escaped && entry[i] == 'n' ? '\n' : entry[i];
  }
  std::vector<std::string> words;
  bool quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '"') {
      quoted = !quoted;
      words.resize(words.size() + (quoted ? 1 : 0));
    } else if (quoted) {
      EXPECT_EQ(std::string("`$").find(line[i]), std::string::npos) << line;
      i += line[i] == '\\' || (line[i] == '%' && line.at(i + 1) == '%') ? 1 : 0;
      words.back() += line[i];
    } else {
      EXPECT_EQ(line[i], ' ') << line;
    }
  }
  return words;
}

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
  EXPECT_EQ(CommandOf(entry), command);
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
  std::ofstream(installed.Path() / "tlyo.pdf") << "manual";
  const OwnDocuments documents(appDir.Path() / "", installed.Path());
  test::UrlOpener desktop("file");
  QtShell shell(documents, LogonEntry({}));
  for (const std::filesystem::path& folder : {installed.Path(), appDir.Path()}) {
    std::ofstream(folder / "tlyo.pdf") << "manual";
    shell.Open(appDir.Path() / "tlyo.pdf");
    EXPECT_EQ(desktop.TakeLast().toLocalFile().toStdString(), folder / "tlyo.pdf");
  }
  const std::filesystem::path nowhere = appDir.Path() / "intro.sht";
  EXPECT_EQ(documents.Find(nowhere), nowhere);
  EXPECT_EQ(documents.Find("/etc/tlyo.pdf"), "/etc/tlyo.pdf");
  EXPECT_FALSE(documents.Hold(appDir.Path()));
  EXPECT_FALSE(documents.Hold(installed.Path() / ".." / "elsewhere"));
}

class WindowDesktopTest : public testing::Test {
 protected:
  WindowDesktopTest() { test.Set(names::kUser, "Acme"); }

  // Saves the text with this name for it.
  void SaveAs(const std::filesystem::path& file) {
    const auto dialog = [] {
      return qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    };
    test.When([dialog] { return dialog() != nullptr; },
              [dialog, file] {
                dialog()->selectFile(QString::fromStdString(file.string()));
                static_cast<QDialog*>(dialog())->accept();
              });
    test.Click("SaveTextAs");
  }

  WindowUnderTest test;
};

TEST_F(WindowDesktopTest, SavesTheTextAsItStands) {
  test.GiveLink(1, "caf\xC3\xA9");
  test.Start();
  test.ClickItem("mnuExport");
  const std::string text = test.Form().Text4.Text();
  EXPECT_NE(text.find("\r\n"), std::string::npos);
  SaveAs(test.folder.Path() / "out.txt");
  EXPECT_EQ(test.FileText("out.txt"), text);
  std::string said;
  test.WhenBox([&said](QMessageBox& box) {
    said = box.text().toStdString();
    QTest::keyClick(&box, Qt::Key_Return);
  });
  SaveAs(test.folder.Path() / "missing" / "<b>.txt");
  EXPECT_NE(said.find("cannot be written"), std::string::npos);
  EXPECT_NE(said.find("<b>.txt"), std::string::npos);
  EXPECT_EQ(test.Form().Text4.Text(), text);
}

TEST_F(WindowDesktopTest, EndsWhileAFileIsChosen) {
  test.Start();
  test.ClickItem("mnuExport");
  test.When([] { return QApplication::activeModalWidget() != nullptr; },
            [this] { test.window.Quit(); });
  QTimer::singleShot(0, &test.window, [this] { test.Click("SaveTextAs"); });
  EXPECT_EQ(test.RunToEnd(), 0);
  EXPECT_EQ(test.FileText("Data/LastRead.dat"), "\r\n");
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

TEST_F(WindowDesktopTest, ShowsTheStartPageThatWasInstalled) {
  std::ofstream(test.installed.Path() / "intro.sht") << "installed";
  test.Start();
  EXPECT_EQ(test.Find<QTextBrowser>("WB1").toPlainText(), "installed");
  EXPECT_EQ(test.Form().WB1.Address(), test.folder.Path() / "intro.sht");
}

}  // namespace
}  // namespace tallyo
