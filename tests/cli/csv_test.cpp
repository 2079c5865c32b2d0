#include "cli/csv.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "tests/cli/console_runner.h"
#include "tests/support/table.h"
#include "text/runtime_error.h"

namespace tallyo::test {
namespace {

std::string Row(const Words& fields) {
  std::ostringstream out;
  PrintCsvRow(out, fields);
  return out.str();
}

TEST(Csv, QuotesOnlyWhatNeedsIt) {
  const Table<Words, std::string> cases = {
      {Words{}, "\n"},
      {{"a", "", " b c", "<b>&"}, "a,, b c,<b>&\n"},
      {{"a,b", "say \"hi\"", "\""}, "\"a,b\",\"say \"\"hi\"\"\",\"\"\"\"\n"},
      {{"a\nb", "c\rd"}, "\"a\nb\",\"c\rd\"\n"},
      {{"\xF0\x9F\x98\x80", "caf\xE9", "\x80\""},
       "\xF0\x9F\x98\x80,caf\xC3\xA9,\"\xE2\x82\xAC\"\"\"\n"}};
  for (const auto& [fields, row] : cases) {
    EXPECT_EQ(Row(fields), row);
  }
}

TEST(Csv, ReadsTheFieldsOfALine) {
  const Table<const char*, Words> cases = {
      {"", {""}},
      {",", {"", ""}},
      {"\"a\",", {"a", ""}},
      {"\"a,b\",\"c\"\"d\"", {"a,b", "c\"d"}},
      {" a ,\xE9,\xF0\x9F\x98\x80\x01", {" a ", "\xE9", "\xF0\x9F\x98\x80\x01"}}};
  for (const auto& [line, fields] : cases) {
    EXPECT_EQ(CsvFields(line), fields) << line;
  }
  for (const char* wrong : {"\"", "a,\"b", "\"a\"b", "\"a\" ,b", "a\"b", " \"a\"", "\"\"\""}) {
    EXPECT_THROW(static_cast<void>(CsvFields(wrong)), RuntimeError) << wrong;
  }
}

TEST(Csv, HoldsTheCurrentStatus) {
  ConsoleRunner c;
  EXPECT_EQ(c.Run({"status", "--csv"}), 0);
  EXPECT_EQ(c.out, "name,counter,change,path\n");
  c.SaveAccount();
  ASSERT_EQ(c.AddLink("a.zip", "say \"hi\""), 0);
  ASSERT_EQ(c.AddLink("b.zip", "caf\xE9"), 0);
  c.Refresh("<P>15 a.zip\n<P>7 b.zip\n");
  EXPECT_EQ(c.Run({"status", "--csv"}), 0);
  EXPECT_EQ(c.out,
            "name,counter,change,path\n\"say \"\"hi\"\"\",15,,http://files/a.zip\n"
            "caf\xC3\xA9,7,,http://files/b.zip\n");
}

}  // namespace
}  // namespace tallyo::test
