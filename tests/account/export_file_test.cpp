#include "account/export_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "text/runtime_error.h"

namespace tallyo {
namespace {

using testing::ElementsAre;
using Texts = std::vector<std::string>;

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

  static constexpr const char* kUnreadable = "unreadable";
  bool accepts = true;
  Texts asked;
  Texts intervals;
};

TEST_F(ExportFileTest, ReadsHeadersOfManyForms) {
  const struct {
    const char* name;
    const char* text;
    const char* read;
    Texts intervals;
  } cases[] = {
      {"empty", "", "-|-|-", {}},
      {"as written",
       "usr=Acme, acc=mysite\nupd=2, dfu=http://d/\n",
       "Acme|mysite|http://d/",
       {"2", "http://d/"}},
      {"one line", "usr=Acme,acc=mysite,upd=2,dfu=u", "Acme|mysite|u", {"2", "u"}},
      {"another order", "dfu=u,upd=2,acc=mysite,usr=Acme", "Acme|mysite|u", {"u", "2"}},
      {"a pair a line", "acc=mysite\nupd=2\n\nusr=Acme\ndfu=u\n", "Acme|mysite|u", {"2", "u"}},
      {"behind dfu on its line",
       "dfu=u, usr=Acme\nacc=mysite\nA\n",
       "Acme|-|u acc=mysite>A",
       {"u"}},
      {"a wrong pair behind dfu", "dfu=u, usr=Other\n", "Wrong Account", {"u"}},
      {"blanks",
       "   usr  =   Acme  ,   acc = mysite ,dfu =  u  v  \n",
       "Acme|mysite|u  v",
       {"u  v"}},
      {"a tab is no blank", "dfu=\tu\t\n", "-|-|\tu\t", {"\tu\t"}},
      {"an equals sign in a value", "dfu=http://d/?a=b\n", "-|-|http://d/?a=b", {"http://d/?a=b"}},
      {"empty values", "upd=,dfu=\n", "-|-|", {"0.5", ""}},
      {"unknown keys", "x=1,USR=Other,dfu=u", "-|-|u", {"u"}},
      {"no equals sign before one with", "junk,usr=Acme,dfu=u", "Acme|-|u", {"u"}},
      {"a bare key before one with", "dfu,x=1\nA,B,C,D\nB\n", "-|-| A,B,C,D>B", {""}},
      {"a bare account", "acc,x=1\n", "Wrong Account", {}},
      {"a comma more", "usr=Acme,\ndfu=u,\n", "Acme|-|u", {"u"}},
      {"no equals sign", "usr=Acme, acc\ndfu=u\n", kUnreadable, {}},
      {"no equals sign at all", "nothing\n", kUnreadable, {}},
      {"blanks only", "  \ndfu=u", kUnreadable, {}},
      {"a link without a header's end", "usr=Acme\n1,A,rA,pA\nA\n", kUnreadable, {}},
      {"another company", "usr=Other\n", "Wrong Account", {}},
      {"other capitals", "usr=ACME\n", "Wrong Account", {}},
      {"another account", "usr=Acme, acc=mysite2\n", "Wrong Account", {}},
      {"the wrong account before the fault", "acc=x\nnothing\n", "Wrong Account", {}},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Read(c.text), c.read) << c.name;
    EXPECT_EQ(intervals, c.intervals) << c.name;
  }
}

TEST_F(ExportFileTest, NeverTakesAnIntervalBelowHalfAnHour) {
  const struct {
    const char* given;
    const char* shown;
  } cases[] = {{"0.5", "0.5"}, {"0.49", "0.5"}, {"0.25", "0.5"}, {"soon", "0.5"},
               {"-2", "0.5"},  {"24", "24"},    {"2 h", "2 h"},  {".75", ".75"}};
  for (const auto& c : cases) {
    static_cast<void>(Read("upd=" + std::string(c.given) + "\n"));
    EXPECT_THAT(intervals, ElementsAre(c.shown)) << c.given;
  }
}

TEST_F(ExportFileTest, TakesTwoLinesForALink) {
  const struct {
    const char* name;
    const char* lines;
    const char* links;
  } cases[] = {
      {"none", "", ""},
      {"two", "1,A,rA,pA\nA\n2,B,rB,pB\nB\n", " 1,A,rA,pA>A 2,B,rB,pB>B"},
      {"empty lines between", "\n\n1,A,rA,pA\nA\n\n\n2,B,rB,pB\nB\n\n", " 1,A,rA,pA>A 2,B,rB,pB>B"},
      {"an empty line as a name", "1,A,rA,pA\n\nA\n2,B,rB,pB\n", " 1,A,rA,pA> A>2,B,rB,pB"},
      {"semicolons and pairs", ";1\n;v9.9\nusr=Other\nupd=1\n", " ;1>;v9.9 usr=Other>upd=1"},
      {"no line end", "1,A,rA,pA\nA", " 1,A,rA,pA>A"},
      {"blanks stay", " 1,A,rA,pA \n A \n", "  1,A,rA,pA > A "},
      {"an end inside", "1,A,rA,pA\nA\n2,B,rB,pB\n", nullptr},
      {"an end inside without a line end", "1,A,rA,pA", nullptr},
  };
  for (const auto& c : cases) {
    for (const std::string lineEnd : {"\n", "\r", "\r\n"}) {
      std::string text;
      for (const char byte : "dfu=u\n" + std::string(c.lines)) {
        text += byte == '\n' ? lineEnd : std::string(1, byte);
      }
      EXPECT_EQ(Read(text), c.links == nullptr ? kUnreadable : "-|-|u" + std::string(c.links))
          << c.name;
    }
  }
}

TEST_F(ExportFileTest, AsksForEveryVersionLineOfTheHeader) {
  const std::string text = ";one\nusr=Acme\n;two\ndfu=u\n;three\n;four\n";
  EXPECT_EQ(Read(text), "Acme|-|u ;three>;four");
  EXPECT_THAT(asked, ElementsAre(";one", ";two"));
  accepts = false;
  EXPECT_EQ(Read(text), "Load aborted by user");
  EXPECT_THAT(asked, ElementsAre(";one"));
}

TEST_F(ExportFileTest, TakesNoNulBytes) {
  EXPECT_EQ(Read(std::string("dfu=u\n\0", 7)), kUnreadable);
  EXPECT_EQ(Read(std::string("usr=Other\n\0", 11)), kUnreadable);
}

TEST_F(ExportFileTest, TakesAsManyLinksAsHaveNumbers) {
  std::string text = "dfu=u\n";
  for (int i = 0; i < 32767; ++i) {
    text += "r\nn\n";
  }
  EXPECT_NE(Read(text), kUnreadable);
  EXPECT_EQ(Read(text + "r\nn\n"), kUnreadable);
}

}  // namespace
}  // namespace tallyo
