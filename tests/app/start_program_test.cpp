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

TEST_F(StartProgramTest, MakesItsFoldersAndShowsTheWindowAsItIsTheFirstTime) {
  program.Start();
  EXPECT_THAT(program.Tree(), ElementsAre("Data", "Data/2026"));
  EXPECT_THAT(program.Store().ReadTree(Hive::LocalMachine, ""), IsEmpty());
  EXPECT_EQ(program.server.Connections(), 0);
  EXPECT_THAT(program.Boxes().Texts(), IsEmpty());
  const MainForm& form = program.Form();
  EXPECT_TRUE(form.Frame.Visible() && form.Timer1.Enabled());
  EXPECT_EQ(form.Frame.Caption(), "Tallyo");
  EXPECT_EQ(form.TmnuDisTitle.Caption(), "        " + program.server.Url());
  EXPECT_EQ(program.P().state.CurrentScreen, screen::kWebPage);
  EXPECT_EQ(form.WB1.Address(), (program.folder.Path() / "intro.sht").string());
  EXPECT_EQ(program.Detail(9) + program.Detail(10), "UnknownNot connected");
  EXPECT_FALSE(form.mnuExportAll.Enabled() || form.Command1[1].Enabled() ||
               form.Check1[1].Enabled() || form.Label2[5].Visible() || form.Combo2.Visible());
}

TEST_F(StartProgramTest, LoadsAccountLinksAndCounters) {
  program.Set(names::kBytesTransTotal, "12345");
  program.GiveAccount();
  program.GiveLinks({"A", "B"});
  program.PutFile("Data/LastRead.dat", "A=5,B=-7,\r\n");
  program.Start();
  const MainForm& form = program.Form();
  EXPECT_EQ(form.Text1[field::kCompany].Text(), "Acme");
  EXPECT_EQ(form.Text1[field::kAccount].Text(), "mysite");
  EXPECT_THAT(form.Combo1.Items(), ElementsAre("A", "B"));
  EXPECT_EQ(program.Rows({1, 3}), "A|5|http://h/A B|-7|http://h/B ");
  EXPECT_EQ(program.Detail(5), "12345");
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

}  // namespace
}  // namespace tallyo
