#include "service/run_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "service/account_record.h"
#include "tests/service/raw_client.h"
#include "tests/support/temp_folder.h"

namespace tallyo::service {
namespace {

using testing::HasSubstr;

class RunProgramTest : public testing::Test {
 protected:
  // Runs the program on the test's database and keeps what it printed.
  int Run(const std::vector<std::string>& words, const std::function<void()>& whileServing = {}) {
    std::vector<const char*> arguments{"tallyo-service", "--database", file_.c_str()};
    for (const std::string& word : words) arguments.push_back(word.c_str());
    out_.str("");
    err_.str("");
    return RunProgram(
        static_cast<int>(arguments.size()), arguments.data(), out_, err_,
        whileServing ? whileServing : [] { ADD_FAILURE() << "nothing to wait for"; });
  }
  int AddAcme() {
    return Run({"account", "add", "acme", "--company", "Acme Widgets", "--max", "3", "--exp",
                "02/29/2028", "--opn", "01/15/2014"});
  }

  test::TempFolder folder_;
  const std::string file_ = (folder_.Path() / "hits.db").string();
  std::ostringstream out_;
  std::ostringstream err_;
};

TEST_F(RunProgramTest, MakesListsAndChangesAccounts) {
  EXPECT_EQ(AddAcme(), 0);
  EXPECT_EQ(AddAcme(), 1);
  EXPECT_THAT(err_.str(), HasSubstr("exists already"));
  EXPECT_EQ(
      Run({"account", "add", "b\xC3\xA9", "--company", "B", "--max", "0", "--exp", "01/01/2030"}),
      0);
  EXPECT_EQ(Run({"account", "set", "acme", "--ban", "yes", "--max", "4"}), 0);
  EXPECT_EQ(Run({"account", "list"}), 0);
  EXPECT_EQ(out_.str(),
            "account  company       links  max  opened      good through  banned\n"
            "acme     Acme Widgets  0      4    01/15/2014  02/29/2028    yes\n"
            "b\xC3\xA9       B             0      0    " +
                TodaysDate() + "  01/01/2030    no\n");
  EXPECT_EQ(Run({"account", "set", "nobody", "--max", "4"}), 1);
}

TEST_F(RunProgramTest, EndsWithTwoAfterWrongUsageAndSaysWhatIsWrong) {
  ASSERT_EQ(AddAcme(), 0);
  const auto adding = [](std::string account, std::string company, std::string max,
                         std::string exp) -> std::vector<std::string> {
    return {"account", "add", account, "--company", company, "--max", max, "--exp", exp};
  };
  for (const auto& [words, why] : std::vector<std::pair<std::vector<std::string>, std::string>>{
           {{}, "subcommand"},
           {{"account", "set", "acme"}, "nothing to change"},
           {{"account", "set", "acme", "--ban", "maybe"}, "--ban"},
           {adding("a,b", "A", "3", "01/01/2030"), "comma"},
           {adding("a\\b", "A", "3", "01/01/2030"), "slash"},
           {adding("", "A", "3", "01/01/2030"), "empty"},
           {adding("a&flnk=b", "A", "3", "01/01/2030"), "&flnk="},
           {adding("x", "A\nB", "3", "01/01/2030"), "control byte"},
           {adding("x", "A", "32768", "01/01/2030"), "--max"},
           {adding("x", "A", "3", "02/29/2027"), "--exp"},
           {adding("x", "A", "3", "1/1/2030"), "--exp: 1/1/2030 is no real date"},
           {{"serve", "--listen", "::1:80"}, "--listen"},
           {{"serve", "--manage-from", "10.0.0.0/33"}, "--manage-from"}}) {
    EXPECT_EQ(Run(words), 2) << why;
    EXPECT_THAT(err_.str(), HasSubstr(why));
    EXPECT_EQ(out_.str(), "");
  }
}

TEST_F(RunProgramTest, FailsWhereItsResultCannotBeWritten) {
  ASSERT_EQ(AddAcme(), 0);
  out_.setstate(std::ios::badbit);
  for (const auto& words : {std::vector<std::string>{"account", "list"}, {"--version"}}) {
    EXPECT_EQ(Run(words), 1);
    EXPECT_THAT(err_.str(), HasSubstr("could not be written"));
  }
}

TEST_F(RunProgramTest, ServesUntilStoppedWhereNobodyListensYet) {
  const auto whileServing = [&] {
    const std::string line = out_.str();
    ASSERT_THAT(line, testing::MatchesRegex("http://127\\.0\\.0\\.1:[0-9]+/\n"));
    EXPECT_EQ(Ask(PortOf(line), "/").status, 200);
    EXPECT_EQ(Run({"serve", "--listen", line.substr(7, line.size() - 9)}), 1);
    EXPECT_THAT(err_.str(), HasSubstr("cannot listen"));
  };
  EXPECT_EQ(Run({"serve", "--listen", "127.0.0.1:0"}, whileServing), 0);
}

TEST_F(RunProgramTest, LeavesAFileOfAnotherProgramAlone) {
  std::ofstream(file_) << "These are not the bytes of a database, whatever its name may say.";
  EXPECT_EQ(AddAcme(), 1);
  EXPECT_EQ(Run({"account", "list"}), 1);
  EXPECT_EQ(Run({"serve", "--listen", "127.0.0.1:0"}), 1);
  EXPECT_THAT(err_.str(), HasSubstr("cannot be used"));
}

}  // namespace
}  // namespace tallyo::service
