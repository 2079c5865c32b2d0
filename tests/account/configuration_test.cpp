#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "account/configuration_export.h"
#include "account/configuration_import.h"
#include "tests/support/monitored_program.h"
#include "tests/support/table.h"

namespace tallyo {
namespace {

using test::kNoFile;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kFile = "mysite.export";
constexpr const char* kHeader = ";Tallyo v1.1\r\nusr=Acme, acc=mysite\r\nupd=2, dfu=http://d/\r\n";

class ConfigurationTest : public testing::Test {
 protected:
  MainForm& Form() { return t.Form(); }
  std::string Path(const std::string& file) { return (t.folder.Path() / file).string(); }

  // Two links with sizes, and the preferences as typed.
  void StartWithLinks() {
    t.GiveAccount();
    t.SetRecord("01", "250,My Setup,setup.exe,http://files/pub/setup.exe");
    t.SetRecord("02", "1.5,B,rB,pB");
    t.Start();
    Form().Text2.SetText("2");
    Form().Text3.SetText("http://d/");
  }

  // False where the command failed on its way.
  bool Export() {
    return t.P().Dispatch([this] { Form().mnuExportAll.Click(); });
  }

  // Types the account and imports this text as its file.
  bool Import(const std::string& text) {
    t.PutFile(kFile, text);
    Form().Text1[field::kCompany].SetText("Acme");
    Form().Text1[field::kAccount].SetText("mysite");
    bool imported = false;
    t.P().Dispatch([&] { imported = t.P().configurationImport.ImportConfiguration(); });
    return imported;
  }

  // The three settings that an import writes, "-" for one that is not there.
  std::string Kept() {
    std::string kept;
    for (const auto name : {names::kUser, names::kAccount, names::kDefUrl}) {
      const bool there = t.Store().Read(Hive::LocalMachine, names::SettingsKey, name).has_value();
      kept += (there ? "=" + t.Setting(name) : "-") + std::string(" ");
    }
    return kept;
  }

  test::MonitoredProgram t;
};

TEST_F(ConfigurationTest, ExportsEachListedLinkThatHasARecordWithItsOwnFields) {
  StartWithLinks();
  t.SetRecord("03", ";v9,C\xE9\x01\x1b[31m,,http://h/?a=b&c=<d>");
  Form().Combo1.AddItem("gone");
  Form().Combo1.AddItem("C\xE9\x01\x1b[31m");
  EXPECT_TRUE(Export());
  const std::string text = std::string(kHeader) +
                           "250,My Setup,setup.exe,http://files/pub/setup.exe\r\nMy Setup\r\n"
                           "1.5,B,rB,pB\r\nB\r\n;v9,C\xE9\x01\x1b[31m,,http://h/?a=b&c=<d>\r\n"
                           "C\xE9\x01\x1b[31m\r\n";
  EXPECT_EQ(t.TextOrNoFile(kFile), text);
  EXPECT_EQ(Form().Text4.Text(), text);
  EXPECT_EQ(t.P().state.CurrentScreen, screen::kText);
  EXPECT_EQ(Form().Text1[field::kLinkPath].Text() + Form().Text1[field::kSizeKb].Text(),
            "http://h/?a=b&c=<d>;v9");
  EXPECT_THAT(t.server.Requests(), IsEmpty());
  t.SetRecord("02", "1,B,rB,pB,more");
  t.PutFile(kFile, kNoFile);
  Export();
  EXPECT_EQ(t.TextOrNoFile(kFile), kNoFile) << "a record cannot be read";
  EXPECT_EQ(t.Boxes().Shown().size(), 1U);
}

TEST_F(ConfigurationTest, ImportsWhatTheFileNames) {
  t.Set(names::kDefUrl, "before");
  t.Start();
  ASSERT_TRUE(
      Import(";Tallyo v1.12\nacc=mysite, upd=0.25\ndfu=http://d/ , usr=Acme\n\n"
             ";v9,B\xE9\x01,,p=B\nB\xE9\x01\n\n8,A,rA,pA\nA"));
  EXPECT_THAT(t.Boxes().Texts(), IsEmpty());
  EXPECT_EQ(Kept(), "=Acme =mysite =http://d/ ");
  EXPECT_EQ(t.Record("01") + " " + t.Record("02") + t.Record("03"), ";v9,B\xE9\x01,,p=B 8,A,rA,pA");
  EXPECT_THAT(Form().Combo1.Items(), ElementsAre("B\xE9\x01", "A"));
  EXPECT_EQ(t.Rows(), "B\xE9\x01|| A|| ");
  EXPECT_EQ(t.P().state.NextLinkIndex, 3);
  EXPECT_EQ(Form().Text2.Text(), "http://d/") << "the default URL goes into the interval box";
  EXPECT_EQ(Form().Text3.Text(), "before");

  // The settings that the file does not name stay; the links of before go.
  ASSERT_TRUE(Import("upd=soon\ndfu=\n1,C,rC,pC\nC\n"));
  EXPECT_EQ(Kept(), "=Acme =mysite = ");
  EXPECT_EQ(t.Record("01") + t.Record("02"), "1,C,rC,pC");
  EXPECT_THAT(Form().Combo1.Items(), ElementsAre("C"));
  EXPECT_EQ(t.P().state.NextLinkIndex, 2);

  ASSERT_TRUE(Import("upd=0.25\n"));
  EXPECT_EQ(Form().Text2.Text(), "0.5");
  EXPECT_EQ(t.P().state.NextLinkIndex, 1);
  EXPECT_EQ(Form().Combo1.Count(), 0);
}

TEST_F(ConfigurationTest, AsksAboutAnotherVersion) {
  const test::Table<std::string, BoxAnswer, std::size_t, bool> cases = {
      {";Tallyo v1.1\n", BoxAnswer::No, 0, true},
      {";Tallyo v1.0\n", BoxAnswer::Yes, 1, true},
      {";Tallyo v2.0\n;\n", BoxAnswer::Yes, 2, true},
      {";Tallyo v2.0\n;\n", BoxAnswer::No, 1, false}};
  for (const auto& [lines, answer, questions, imported] : cases) {
    SCOPED_TRACE(lines);
    t.Start();
    t.Boxes().NextAnswer = answer;
    EXPECT_EQ(Import(lines + "dfu=u\n1,A,rA,pA\nA\n"), imported);
    ASSERT_EQ(t.Boxes().Shown().size(), questions + (imported ? 0 : 1));
    for (std::size_t i = 0; i < questions; ++i) {
      const MessageBox& box = t.Boxes().Shown()[i];
      EXPECT_EQ(box.text,
                "This data file was created for a different Tallyo's version and may not work with "
                "this one\nConsult to Tallyo's web site for compatibility issues\n\nPress Yes to "
                "load this file or No to cancel");
      EXPECT_EQ(box.title, "Tallyo - Warning:");
      EXPECT_EQ(box.icon, BoxIcon::Information);
      EXPECT_EQ(box.buttons, BoxButtons::YesNo);
    }
  }
}

TEST_F(ConfigurationTest, LeavesACleanProgramWhereAnImportFails) {
  const std::string notFound = "File: " + Path(kFile) + " not found";
  const std::string header = "usr=Acme, acc=mysite, dfu=new\n";
  const test::Table<std::string, std::string> cases = {
      {kNoFile, notFound},
      {"dfu=new, usr=Other\n", "Wrong Account"},
      {"usr=Acme\n;v2\n", "Load aborted by user"},
      {header + "1,A,rA,pA\nA\n2,B,rB,pB\n", notFound},
      {header + std::string((16U << 20U) + 1, '\n'), notFound},
      {header + "1,A,rA,pA\nA\n2,B,rB,pB\nC\n", ""},
      {header + "1,A,rA,pA\nA\n2,B,rB,pB,more\nB\n", ""}};
  for (const bool stored : {true, false}) {
    for (const auto& [text, message] : cases) {
      SCOPED_TRACE(text.substr(0, 60));
      t.Start();
      for (const auto name : {names::kUser, names::kAccount, names::kDefUrl}) {
        t.Store().DeleteValue(Hive::LocalMachine, names::SettingsKey, name);
        if (stored) {
          t.Set(name, "former");
        }
      }
      t.SetRecord("01", "1,X,rX,pX");
      t.SetRecord("02", "1,Y,rY,pY");
      Form().Combo1.AddItem("X");
      EXPECT_FALSE(Import(text));
      EXPECT_EQ(Kept(), stored ? "=former =former =former " : "- - - ");
      EXPECT_FALSE(t.Store().KeyExists(Hive::LocalMachine, names::MonitorFilesKey));
      EXPECT_EQ(Form().Combo1.Count(), 0);
      EXPECT_EQ(Form().Combo1.Text() + t.Rows(), "");
      EXPECT_EQ(t.P().state.NextLinkIndex, 0);
      EXPECT_EQ(t.Boxes().Shown().empty() ? "" : t.Boxes().Texts().back(), message);
    }
  }
  EXPECT_TRUE(Import("dfu=u\n1,A,rA,pA\nA\n"));
  t.Restart();
  EXPECT_THAT(Form().Combo1.Items(), ElementsAre("A"));
  Form().Text1[field::kAccount].SetText("a/b");
  t.P().configurationImport.ImportConfiguration();
  EXPECT_THAT(t.Boxes().Texts(), ElementsAre("File: " + Path("a/b.export") + " not found"));
}

TEST_F(ConfigurationTest, ImportsNothingWhileAFetchWaits) {
  t.StartWith({{"a", "1"}});
  t.PutFile(kFile, "dfu=u\n1,A,rA,pA\nA\n");
  t.server.Hold(test::kAccountPath);
  bool imported = true;
  t.DuringRequest(1, [&] { imported = t.P().configurationImport.ImportConfiguration(); });
  t.P().Dispatch([this] { t.P().verification.VerifyAccount(); });
  EXPECT_FALSE(imported);
  EXPECT_EQ(t.server.Requests().size(), 1U);
  EXPECT_THAT(t.Boxes().Texts(), IsEmpty());
  EXPECT_EQ(t.Record("01"), "1,a,a.zip,http://h/a");
  EXPECT_THAT(Form().Combo1.Items(), ElementsAre("a"));
}

}  // namespace
}  // namespace tallyo
