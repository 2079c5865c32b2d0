#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "account/configuration_export.h"
#include "account/configuration_import.h"
#include "tests/support/monitored_program.h"
#include "text/two_digits.h"

namespace tallyo {
namespace {

using test::kNoFile;
using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

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
  void TypeAccount() {
    Form().Text1[field::kCompany].SetText("Acme");
    Form().Text1[field::kAccount].SetText("mysite");
  }
  bool Import(const std::string& text) {
    t.PutFile(kFile, text);
    TypeAccount();
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

  void ExpectNoLinks() {
    EXPECT_THAT(t.Store().ReadTree(Hive::LocalMachine, names::MonitorFilesKey), IsEmpty());
    EXPECT_FALSE(t.Store().KeyExists(Hive::LocalMachine, names::MonitorFilesKey));
    EXPECT_EQ(Form().Combo1.Count(), 0);
    EXPECT_EQ(Form().Combo1.Text(), "");
    EXPECT_EQ(t.Rows(), "");
    EXPECT_EQ(t.P().state.NextLinkIndex, 0);
  }

  test::MonitoredProgram t;
};

TEST_F(ConfigurationTest, ExportsToTheByteAndSaysSo) {
  StartWithLinks();
  const std::string text = std::string(kHeader) +
                           "250,My Setup,setup.exe,http://files/pub/setup.exe\r\nMy Setup\r\n"
                           "1.5,B,rB,pB\r\nB\r\n";
  for (int i = 1; i <= 2; ++i) {
    EXPECT_TRUE(Export());
    EXPECT_EQ(t.TextOrNoFile(kFile), text);
    EXPECT_EQ(Form().Text4.Text(), text);
    EXPECT_EQ(t.P().state.CurrentScreen, screen::kText);
    EXPECT_EQ(Form().Combo1.Text(), "B");
    EXPECT_EQ(Form().Text1[field::kLinkPath].Text(), "pB");
    EXPECT_EQ(Form().Text1[field::kReference].Text(), "rB");
    EXPECT_EQ(Form().Text1[field::kFriendlyName].Text(), "B");
    EXPECT_EQ(Form().Text1[field::kSizeKb].Text(), "1.5");
    ASSERT_EQ(t.Boxes().Shown().size(), static_cast<std::size_t>(i));
    const MessageBox& box = t.Boxes().Shown().back();
    EXPECT_EQ(box.title, "Tallyo - Data Export");
    EXPECT_EQ(box.text, "Data exported to: \n" + Path(kFile) + "\nYou also need to copy: \n" +
                            Path("Data") + "/\n to the new computer");
    EXPECT_EQ(box.icon, BoxIcon::Information);
    EXPECT_EQ(box.buttons, BoxButtons::Ok);
  }
  EXPECT_THAT(t.server.Requests(), IsEmpty());
}

TEST_F(ConfigurationTest, ExportsNothingWhereNoLinkIsListed) {
  t.GiveAccount();
  t.Start();
  Form().mnuExportAll.SetEnabled(true);
  const auto before = t.Tree();
  EXPECT_TRUE(Export());
  EXPECT_EQ(t.Tree(), before);
  EXPECT_EQ(t.P().state.CurrentScreen, screen::kWebPage);
  EXPECT_EQ(Form().Text4.Text(), "");
  EXPECT_THAT(t.Boxes().Texts(), IsEmpty());
}

TEST_F(ConfigurationTest, SaysNothingOfAFileThatCannotBeWritten) {
  for (const std::string account : {"mysite", "a/b", "a\\b"}) {
    StartWithLinks();
    std::filesystem::create_directories(t.folder.Path() / kFile);
    Form().Text1[field::kAccount].SetText(account);
    Export();
    EXPECT_THAT(t.Boxes().Texts(), IsEmpty()) << account;
    EXPECT_EQ(Form().Text4.Text().find(";Tallyo v1.1\r\nusr=Acme, acc=" + account), 0U);
    EXPECT_FALSE(t.HasFile(kFile));
    EXPECT_FALSE(t.HasFile("a/b.export"));
  }
}

TEST_F(ConfigurationTest, LeavesOutAListedLinkWithoutARecord) {
  StartWithLinks();
  Form().Combo1.RemoveItem(1);
  Form().Combo1.AddItem("gone");
  EXPECT_TRUE(Export());
  EXPECT_EQ(
      t.TextOrNoFile(kFile),
      std::string(kHeader) + "250,My Setup,setup.exe,http://files/pub/setup.exe\r\nMy Setup\r\n");
}

TEST_F(ConfigurationTest, GivesALinkNothingOfAnother) {
  StartWithLinks();
  t.SetRecord("02", ",B,,pB");
  EXPECT_TRUE(Export());
  EXPECT_TRUE(t.TextOrNoFile(kFile).ends_with("My Setup\r\n,B,,pB\r\nB\r\n"))
      << t.TextOrNoFile(kFile);
}

TEST_F(ConfigurationTest, WritesNoFileWhereARecordCannotBeRead) {
  StartWithLinks();
  t.SetRecord("02", "1,B,rB,pB,more");
  Export();
  EXPECT_EQ(t.TextOrNoFile(kFile), kNoFile);
  EXPECT_THAT(t.Boxes().Texts(), IsEmpty());
}

TEST_F(ConfigurationTest, ReachesAnotherComputerByteForByte) {
  const std::string emoji = "\xF0\x9F\x98\x80";
  const Texts records = {
      ",My Setup,setup.exe,http://files/pub/setup.exe",
      "7,<b>bold</b> & \"q\",<i>,http://h/?a=b&c=<d>",
      "1," + std::string(4000, 'n') + ",r,http://" + std::string(4000, 'p'),
      "x y," + emoji + "\xE9,\x01\x1b[31m\x7F,http://h/" + emoji,
      ";v9," + std::string("; usr=x") + ",r=,dfu=p",
  };
  t.GiveAccount();
  for (std::size_t i = 0; i < records.size(); ++i) {
    t.SetRecord(TwoDigits(static_cast<int>(i) + 1), records[i]);
  }
  t.Start();
  const Texts listed = Form().Combo1.Items();
  ASSERT_EQ(listed.size(), records.size());
  ASSERT_TRUE(Export());

  test::MonitoredProgram other;
  other.Start();
  other.Form().Text1[field::kCompany].SetText("Acme");
  other.Form().Text1[field::kAccount].SetText("mysite");
  other.PutFile(kFile, t.FileText(kFile));
  other.P().Dispatch([&] { other.Form().mnuImportAll.Click(); });
  EXPECT_THAT(other.Boxes().Texts(), IsEmpty());
  for (std::size_t i = 0; i < records.size(); ++i) {
    EXPECT_EQ(other.Record(TwoDigits(static_cast<int>(i) + 1)), records[i]);
  }
  EXPECT_EQ(other.Record("06"), "");
  EXPECT_EQ(other.Form().Combo1.Items(), listed);
  EXPECT_EQ(other.Form().ListView1.RowCount(), 5);
  EXPECT_EQ(other.Form().ListView1.Value(4, 3), "http://h/" + emoji);
  EXPECT_EQ(other.P().state.NextLinkIndex, 6);
  EXPECT_EQ(other.Setting(names::kUser) + other.Setting(names::kAccount), "Acmemysite");
  EXPECT_THAT(other.server.Requests(), IsEmpty());
}

TEST_F(ConfigurationTest, ImportsWhatTheFileNames) {
  t.Set(names::kDefUrl, "before");
  t.Start();
  ASSERT_TRUE(
      Import(";Tallyo v1.12\nacc=mysite, upd=0.25\ndfu=http://d/ , usr=Acme\n\n"
             "9,B,rB,pB\nB\n\n8,A,rA,pA\nA"));
  EXPECT_THAT(t.Boxes().Texts(), IsEmpty());
  EXPECT_EQ(Kept(), "=Acme =mysite =http://d/ ");
  EXPECT_EQ(t.Record("01") + " " + t.Record("02") + t.Record("03"), "9,B,rB,pB 8,A,rA,pA");
  EXPECT_THAT(Form().Combo1.Items(), ElementsAre("B", "A"));
  EXPECT_EQ(t.Rows(), "B|| A|| ");
  EXPECT_EQ(t.P().state.NextLinkIndex, 3);
  EXPECT_EQ(Form().Text2.Text(), "http://d/") << "the default URL goes into the interval box";
  EXPECT_EQ(Form().Text3.Text(), "before");
  EXPECT_EQ(t.Setting(names::kUpdDefTime), "");

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
  const struct {
    const char* lines;
    BoxAnswer answer;
    std::size_t questions;
    bool imported;
  } cases[] = {{";Tallyo v1.1\n", BoxAnswer::No, 0, true},
               {";Tallyo v1.12\n", BoxAnswer::No, 0, true},
               {"", BoxAnswer::No, 0, true},
               {";Tallyo v1.0\n", BoxAnswer::Yes, 1, true},
               {";Tallyo V1.1\n", BoxAnswer::Yes, 1, true},
               {";Tallyo v1.1\n;\n", BoxAnswer::Yes, 1, true},
               {";Tallyo v2.0\n;\n", BoxAnswer::Yes, 2, true},
               {";Tallyo v2.0\n;\n", BoxAnswer::No, 1, false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.lines);
    t.Start();
    t.Boxes().NextAnswer = c.answer;
    EXPECT_EQ(Import(std::string(c.lines) + "dfu=u\n1,A,rA,pA\nA\n"), c.imported);
    ASSERT_EQ(t.Boxes().Shown().size(), c.questions + (c.imported ? 0 : 1));
    for (std::size_t i = 0; i < c.questions; ++i) {
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
  std::string tooMany = header;
  for (int i = 0; i < 32768; ++i) {
    tooMany += "1,A,rA,pA\nA\n";
  }
  const struct {
    const char* name;
    std::string text;
    std::string message;  // none where empty
  } cases[] = {
      {"missing", kNoFile, notFound},
      {"other company", "dfu=new, usr=Other\n", "Wrong Account"},
      {"other capitals", "dfu=new, usr=ACME\n", "Wrong Account"},
      {"other account", "usr=Acme, acc=other\n", "Wrong Account"},
      {"declined", "usr=Acme\n;v2\n", "Load aborted by user"},
      {"no equals sign", "usr=Acme\nnothing\n", notFound},
      {"an end inside a link", header + "1,A,rA,pA\nA\n2,B,rB,pB\n", notFound},
      {"a NUL byte", header + std::string("1,A,rA,p\0A\nA\n", 13), notFound},
      {"too many links", tooMany, notFound},
      {"too many bytes", header + std::string((16U << 20U) + 1, '\n'), notFound},
      {"a name that is no record's", header + "1,A,rA,pA\nA\n2,B,rB,pB\nC\n", ""},
      {"an empty line as a name", header + "1,A,rA,pA\n\nA\n2,B,rB,pB\n", ""},
      {"a record that is too long", header + "1,A,rA,pA\nA\n2,B,rB,pB,more\nB\n", ""},
  };
  for (const bool stored : {true, false}) {
    for (const auto& c : cases) {
      SCOPED_TRACE(c.name);
      t.Start();
      for (const auto name : {names::kUser, names::kAccount, names::kDefUrl}) {
        t.Store().DeleteValue(Hive::LocalMachine, names::SettingsKey, name);
      }
      if (stored) {
        t.Set(names::kUser, "Former");
        t.Set(names::kAccount, "former");
        t.Set(names::kDefUrl, "http://former/");
      }
      t.SetRecord("01", "1,X,rX,pX");
      t.SetRecord("02", "1,Y,rY,pY");
      Form().Combo1.AddItem("X");
      EXPECT_FALSE(Import(c.text));
      EXPECT_EQ(Kept(), stored ? "=Former =former =http://former/ " : "- - - ");
      ExpectNoLinks();
      if (c.message.empty()) {
        EXPECT_THAT(t.Boxes().Texts(), IsEmpty());
        continue;
      }
      ASSERT_FALSE(t.Boxes().Shown().empty());
      const MessageBox& box = t.Boxes().Shown().back();
      EXPECT_EQ(box.text, c.message);
      EXPECT_EQ(box.title, "");
      EXPECT_EQ(box.icon, BoxIcon::Critical);
      EXPECT_EQ(box.buttons, BoxButtons::Ok);
    }
  }
}

TEST_F(ConfigurationTest, TellsTheFileThatAnAccountCannotHave) {
  t.Start();
  Form().Text1[field::kAccount].SetText("a/b");
  t.P().configurationImport.ImportConfiguration();
  EXPECT_THAT(t.Boxes().Texts(), ElementsAre("File: " + Path("a/b.export") + " not found"));
}

TEST_F(ConfigurationTest, ImportsAgainWhatFailedBefore) {
  t.Start();
  EXPECT_FALSE(Import("dfu=u\n1,A,rA,pA\nwrong\n"));
  EXPECT_TRUE(Import("dfu=u\n1,A,rA,pA\nA\n"));
  EXPECT_TRUE(Import("dfu=u\n1,A,rA,pA\nA\n"));
  EXPECT_THAT(Form().Combo1.Items(), ElementsAre("A"));
  EXPECT_EQ(t.Rows(), "A|| ");
  EXPECT_EQ(t.P().state.NextLinkIndex, 2);
  t.Restart();
  EXPECT_THAT(Form().Combo1.Items(), ElementsAre("A"));
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
