#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/program.h"
#include "tests/support/monitored_program.h"

namespace tallyo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class StartProgramTest : public testing::Test {
 protected:
  test::MonitoredProgram program;
};

TEST_F(StartProgramTest, MakesItsFoldersAndNothingElseInAnEmptyFolder) {
  program.Start();
  EXPECT_THAT(program.Tree(), ElementsAre("Data", "Data/2026"));
  EXPECT_THAT(program.Store().ReadTree(Hive::LocalMachine, ""), IsEmpty());
  EXPECT_EQ(program.server.Connections(), 0);
  EXPECT_THAT(program.Boxes().Texts(), IsEmpty());
}

TEST_F(StartProgramTest, ShowsTheWindowAsItIsTheFirstTime) {
  program.Set(names::kBytesTransTotal, "12345");
  program.Start();
  const MainForm& form = program.Form();
  EXPECT_TRUE(form.Frame.Visible());
  EXPECT_EQ(form.Frame.Caption(), "Tallyo");
  EXPECT_EQ(form.TmnuDisTitle.Caption(), "        " + program.server.Url());
  EXPECT_EQ(program.P().state.CurrentScreen, screen::kWebPage);
  EXPECT_EQ(form.WB1.Address(), (program.folder.Path() / "intro.sht").string());
  EXPECT_EQ(program.Detail(5), "12345");
  EXPECT_EQ(program.Detail(9), "Unknown");
  EXPECT_EQ(program.Detail(10), "Not connected");
  EXPECT_TRUE(form.Timer1.Enabled());
}

TEST_F(StartProgramTest, LoadsAccountLinksAndCounters) {
  program.GiveAccount();
  program.GiveLinks({"A", "B"});
  program.PutFile("Data/LastRead.dat", "A=5,B=-7,\r\n");
  program.Start();
  const MainForm& form = program.Form();
  EXPECT_EQ(form.Text1[field::kCompany].Text(), "Acme");
  EXPECT_EQ(form.Text1[field::kAccount].Text(), "mysite");
  EXPECT_THAT(form.Combo1.Items(), ElementsAre("A", "B"));
  EXPECT_EQ(program.Rows({1, 3}), "A|5|http://h/A B|-7|http://h/B ");
  EXPECT_EQ(program.server.Connections(), 0);
}

TEST_F(StartProgramTest, GoesOnWhereItsFolderCannotBeMade) {
  program.WriteFile("Data", "in the way");
  program.SetRecord("01", "1,A,rA,pA");
  program.Start();
  EXPECT_TRUE(program.Form().Frame.Visible());
  EXPECT_EQ(program.P().state.YearFolder, "2026/");
  EXPECT_EQ(program.Form().ListView1.RowCount(), 1);
  program.Form().mnuWindDaily.Click();
  program.P().Quit();
  EXPECT_EQ(program.Setting(names::kPrevCheck), "01-15-2026 0");
  EXPECT_EQ(program.FileText("Data"), "in the way");
}

TEST_F(StartProgramTest, RunsOnAStoreThatCannotBeOpened) {
  program.WriteFile("settings.db", std::string(5000, 'x'));
  program.Start();
  EXPECT_NE(program.Store().Problem(), "");
  EXPECT_THAT(program.Boxes().Texts(), IsEmpty());
  MainForm& form = program.Form();
  form.mnuPrefs.Click();
  form.Check1[4].SetValue(1);
  EXPECT_TRUE(form.Label5[1].Visible());
  form.mnuServiceInfo.Click();
  EXPECT_EQ(program.Detail(6), "0");
  program.P().links.AppendMonitoredLink({"1", "A", "rA", "pA"});
  EXPECT_THAT(form.Combo1.Items(), ElementsAre("A"));
  program.P().Quit();
  EXPECT_EQ(program.FileText("Data/LastRead.dat"), "\r\n");
  EXPECT_EQ(program.FileText("settings.db"), std::string(5000, 'x'));
}

}  // namespace
}  // namespace tallyo
