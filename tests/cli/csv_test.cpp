#include "cli/csv.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "tests/cli/console_runner.h"
#include "text/runtime_error.h"

namespace tallyo::test {
namespace {

using ::testing::HasSubstr;
using Texts = std::vector<std::string>;

std::string Row(const Texts& fields) {
  std::ostringstream out;
  PrintCsvRow(out, fields);
  return out.str();
}

TEST(Csv, QuotesOnlyWhatNeedsIt) {
  const struct {
    Texts fields;
    std::string row;
  } cases[] = {
      {{}, "\n"},
      {{"a", "", "b c"}, "a,,b c\n"},
      {{"a,b", "c"}, "\"a,b\",c\n"},
      {{"say \"hi\"", "\""}, "\"say \"\"hi\"\"\",\"\"\"\"\n"},
      {{"\"\""}, "\"\"\"\"\"\"\n"},
      {{"a\nb", "c\rd"}, "\"a\nb\",\"c\rd\"\n"},
      {{" a ", "<b>&"}, " a ,<b>&\n"},
      {{"\xF0\x9F\x98\x80", "caf\xE9", "\x80\""},
       "\xF0\x9F\x98\x80,caf\xC3\xA9,\"\xE2\x82\xAC\"\"\"\n"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Row(c.fields), c.row);
  }
}

TEST(Csv, ReadsTheFieldsOfALine) {
  const struct {
    const char* line;
    Texts fields;
  } cases[] = {
      {"", {""}},
      {"a", {"a"}},
      {"a,b", {"a", "b"}},
      {",", {"", ""}},
      {"a,", {"a", ""}},
      {"\"\",\"\"", {"", ""}},
      {"\"a\",", {"a", ""}},
      {"\"a,b\",\"c\"\"d\"", {"a,b", "c\"d"}},
      {"\"\"\"\"", {"\""}},
      {" a , b ", {" a ", " b "}},
      {"\xE9,\xF0\x9F\x98\x80\x01", {"\xE9", "\xF0\x9F\x98\x80\x01"}},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(CsvFields(c.line), c.fields) << c.line;
  }
  for (const char* wrong : {"\"", "a,\"b", "\"a\"b", "\"a\" ,b", "a\"b", " \"a\"", "\"\"\""}) {
    EXPECT_THROW(static_cast<void>(CsvFields(wrong)), RuntimeError) << wrong;
  }
}

TEST(Csv, ReadsWhatItHasWritten) {
  const Texts parts = {",", "\"", "\"\"", "a", " ", "<", "\x01", "\xF0\x9F\x98\x80"};
  std::mt19937 random(20261122);
  for (int i = 0; i < 2000; ++i) {
    Texts fields(1 + random() % 4);
    for (std::string& field : fields) {
      for (std::size_t left = random() % 6; left > 0; --left) {
        field += parts[random() % parts.size()];
      }
    }
    std::string row = Row(fields);
    ASSERT_TRUE(row.ends_with('\n'));
    row.pop_back();
    ASSERT_EQ(CsvFields(row), fields) << row;
  }
}

TEST(Csv, HoldsTheCurrentStatus) {
  ConsoleRunner c;
  EXPECT_EQ(c.Run({"status", "--csv"}), 0);
  EXPECT_EQ(c.out, "name,counter,change,path\n");
  ASSERT_EQ(c.Run({"account", "save", "Acme", "mysite"}), 0);
  ASSERT_EQ(c.AddLink("a.zip", "say \"hi\""), 0);
  ASSERT_EQ(c.AddLink("b.zip", "caf\xE9"), 0);
  ASSERT_EQ(c.AddLink("c.zip", "<b>\xF0\x9F\x98\x80\x1b[31m"), 0);
  c.GiveCounters("<P>15 a.zip\n<P>7 b.zip\n<P>0 c.zip\n");
  ASSERT_EQ(c.Run({"refresh"}), 0);
  const std::size_t requests = c.server.Requests().size();
  EXPECT_EQ(c.Run({"status", "--csv"}), 0);
  EXPECT_THAT(c.out, HasSubstr("name,counter,change,path\n\"say \"\"hi\"\"\",15,"));
  EXPECT_THAT(c.out, HasSubstr(",http://files/a.zip\ncaf\xC3\xA9,7,"));
  EXPECT_THAT(c.out, HasSubstr("\n<b>\xF0\x9F\x98\x80\x1b[31m,0,,http://files/c.zip\n"));
  EXPECT_EQ(c.server.Requests().size(), requests);
}

TEST(Csv, IsNoJsonAtTheSameTime) {
  ConsoleRunner c;
  for (const Texts& words : {Texts{"--json", "status", "--csv"}, Texts{"status", "--csv", "--json"},
                             Texts{"--json", "daily", "a", "--csv"},
                             Texts{"--json", "daily", "--all", "--csv"}, Texts{"info", "--csv"}}) {
    EXPECT_EQ(c.Run(words), 2) << words.back();
    EXPECT_EQ(c.out, "");
    EXPECT_THAT(c.err, HasSubstr("--csv"));
  }
}

}  // namespace
}  // namespace tallyo::test
