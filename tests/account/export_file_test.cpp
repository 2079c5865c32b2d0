#include "account/export_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/table.h"
#include "text/runtime_error.h"

namespace tallyo {
namespace {

using test::Table;
using testing::ElementsAre;
using Texts = std::vector<std::string>;

constexpr const char* kUnreadable = "unreadable";

// Reads files of the company Acme and the account mysite, and tells what it came to.
class ExportFileTest : public testing::Test {
 protected:
  // "user|account|default URL", each "-" where the file does not name it, then " record>name" for
  // each link; for a file that is not loaded, why.
  std::string Read(const std::string& text) {
    asked.clear();
    intervals.clear();
    ExportFileReader reader(
        {.company = "Acme",
         .account = "mysite",
         .acceptsVersion =
             [this](const std::string& line) {
               asked.push_back(line);
               return accepts;
             },
         .showInterval = [this](const std::string& hours) { intervals.push_back(hours); }});
    try {
      const ExportedConfiguration read = reader.Read(text);
      std::string told = read.user.value_or("-") + "|" + read.account.value_or("-") + "|" +
                         read.defaultUrl.value_or("-");
      for (const auto& link : read.links) {
        told += " " + link.record + ">" + link.name;
      }
      return told;
    } catch (const LoadRefused& refused) {
      return refused.what();
    } catch (const RuntimeError&) {
      return kUnreadable;
    }
  }

  bool accepts = true;
  Texts asked;
  Texts intervals;
};

TEST_F(ExportFileTest, ReadsHeadersOfManyForms) {
  const Table<const char*, const char*, Texts> cases = {
      {"", "-|-|-", {}},
      {"usr=Acme,acc=mysite,upd=2,dfu=u", "Acme|mysite|u", {"2", "u"}},
      {"acc=mysite\nupd=2\n\nusr=Acme\ndfu=u\n", "Acme|mysite|u", {"2", "u"}},
      {"dfu=u, usr=Acme\nacc=mysite\nA\n", "Acme|-|u acc=mysite>A", {"u"}},
      {"dfu=u, usr=Other\n", "Wrong Account", {"u"}},
      {"   usr  =   Acme  ,dfu =  u  v  \n", "Acme|-|u  v", {"u  v"}},
      {"dfu=\tu\t\n", "-|-|\tu\t", {"\tu\t"}},
      {"dfu=http://d/?a=b\n", "-|-|http://d/?a=b", {"http://d/?a=b"}},
      {"upd=,dfu=\n", "-|-|", {"0.5", ""}},
      {"x=1,USR=Other,dfu=u", "-|-|u", {"u"}},
      {"junk,usr=Acme,\ndfu=u,\n", "Acme|-|u", {"u"}},
      {"dfu,x=1\nA,B,C,D\nB\n", "-|-| A,B,C,D>B", {""}},
      {"acc,x=1\n", "Wrong Account", {}},
      {"usr=Acme, acc\ndfu=u\n", kUnreadable, {}},
      {"  \ndfu=u", kUnreadable, {}},
      {"usr=Acme\n1,A,rA,pA\nA\n", kUnreadable, {}},
      {"usr=ACME\n", "Wrong Account", {}},
      {"acc=mysite2\nnothing\n", "Wrong Account", {}}};
  for (const auto& [text, read, shown] : cases) {
    EXPECT_EQ(Read(text), read) << text;
    EXPECT_EQ(intervals, shown) << text;
  }
  const Table<std::string, const char*> intervalCases = {{"0.49", "0.5"}, {"soon", "0.5"},
                                                         {"-2", "0.5"},   {"24", "24"},
                                                         {"2 h", "2 h"},  {".75", ".75"}};
  for (const auto& [given, shown] : intervalCases) {
    static_cast<void>(Read("upd=" + given + "\n"));
    EXPECT_THAT(intervals, ElementsAre(shown)) << given;
  }
}

TEST_F(ExportFileTest, TakesTwoLinesForALink) {
  const std::string before = "-|-|u";
  const Table<const char*, std::string> cases = {
      {"\n\n1,A,rA,pA\nA\n\n\n2,B,rB,pB\nB\n\n", before + " 1,A,rA,pA>A 2,B,rB,pB>B"},
      {"1,A,rA,pA\n\nA\n2,B,rB,pB\n", before + " 1,A,rA,pA> A>2,B,rB,pB"},
      {";1\n;v9.9\nusr=Other\nupd=1\n", before + " ;1>;v9.9 usr=Other>upd=1"},
      {"1,A,rA,pA\nA", before + " 1,A,rA,pA>A"},
      {" 1,A,rA,pA \n A \n", before + "  1,A,rA,pA > A "},
      {"1,A,rA,pA\nA\n2,B,rB,pB\n", kUnreadable},
      {"1,A,rA,pA", kUnreadable}};
  for (const auto& [lines, read] : cases) {
    EXPECT_EQ(Read("dfu=u\n" + std::string(lines)), read) << lines;
  }
  EXPECT_EQ(Read(std::string("usr=Other\n\0", 11)), kUnreadable);
  std::string most = "dfu=u\n";
  for (int i = 0; i < 32767; ++i) {
    most += "r\nn\n";
  }
  EXPECT_NE(Read(most), kUnreadable);
  EXPECT_EQ(Read(most + "r\nn\n"), kUnreadable);
}

TEST_F(ExportFileTest, AsksForEveryVersionLineOfTheHeader) {
  const std::string text = ";one\nusr=Acme\n;two\ndfu=u\n;three\n;four\n";
  EXPECT_EQ(Read(text), "Acme|-|u ;three>;four");
  EXPECT_THAT(asked, ElementsAre(";one", ";two"));
  accepts = false;
  EXPECT_EQ(Read(text), "Load aborted by user");
  EXPECT_THAT(asked, ElementsAre(";one"));
}

}  // namespace
}  // namespace tallyo
