#include "account/account_entry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/support/monitored_program.h"

namespace tallyo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AccountEntryTest : public testing::Test {
 protected:
  AccountEntryTest() {
    t_.Start();
    t_.P().screens.ShowScreen(screen::kManageLinks);
  }
  void Type(const std::string& company, const std::string& account) {
    t_.Form().Text1[field::kCompany].SetText(company);
    t_.Form().Text1[field::kAccount].SetText(account);
  }
  bool Save() { return t_.P().account.SaveAccount(); }
  std::string Stored() { return t_.Setting(names::kUser) + "|" + t_.Setting(names::kAccount); }

  test::MonitoredProgram t_;
};

TEST_F(AccountEntryTest, StoresThePairThatTheServiceAccepted) {
  t_.GiveAccount(10, "01/15/2027", false);
  Type("Acme", "mysite");
  t_.server.Hold(test::kAccountPath);
  t_.DuringRequest(1, [&] { Type("Other", "other"); });
  EXPECT_TRUE(Save());
  EXPECT_EQ(Stored(), "Acme|mysite");
  EXPECT_THAT(t_.Boxes().Texts(),
              ElementsAre("Welcome Acme Your account information has been saved"));
  EXPECT_EQ(t_.Boxes().Shown()[0].title, "");
  EXPECT_FALSE(t_.Form().mnuSave.Enabled());
  EXPECT_EQ(t_.Form().Focused(), &t_.Form().Text1[field::kLinkPath]);
  t_.Restart();
  EXPECT_EQ(t_.Form().Text1[field::kCompany].Text(), "Acme");
  EXPECT_EQ(t_.Form().Text1[field::kAccount].Text(), "mysite");
}

TEST_F(AccountEntryTest, KeepsTheStoredPairWhereTheNewOneIsRefused) {
  t_.Set(names::kUser, "Old");
  t_.Set(names::kAccount, "old");
  const struct {
    const char* company;
    const char* account;
    const char* record;
    std::size_t boxes;
  } rows[] = {{"acme", "mysite", "com=Acme,acc=mysite\n", 1},
              {"Acme", "mysite", "404 Not Found", 0},
              {"Acme", "mysite", "exp=01/15/2026\n", 0},
              {"Acme", "mysite", "com=Acme,rest\n", 0},
              {"Acme", "my\nsite", "com=Acme\n", 0}};
  std::size_t boxes = 0;
  for (const auto& row : rows) {
    SCOPED_TRACE(row.record);
    Type(row.company, row.account);
    t_.server.Answer(test::kAccountPath, row.record);
    EXPECT_FALSE(Save());
    EXPECT_EQ(Stored(), "Old|old");
    boxes += row.boxes;
    EXPECT_EQ(t_.Boxes().Shown().size(), boxes) << "nothing but what the check says";
    EXPECT_EQ(t_.Form().Focused(), nullptr);
  }
}

TEST_F(AccountEntryTest, TellsByTheStoredPairWhetherAnAccountIsSet) {
  const struct {
    const char* company;
    const char* account;
    int count;
  } rows[] = {{"", "", 0}, {"Acme", "", 1}, {"", "mysite", 1}, {"Acme", "mysite", 2}};
  for (const auto& row : rows) {
    t_.Set(names::kUser, row.company);
    t_.Set(names::kAccount, row.account);
    const bool set = row.count == 2;
    Type(set ? "" : "Acme", set ? "" : "mysite");
    t_.Form().mnuViewStats.SetEnabled(!set);
    t_.Form().mnuUpgrade.SetEnabled(!set);
    t_.Form().ListView3.SetValue(detail::kAccountStatus, 1, "Normal");
    std::int16_t count = 0;
    t_.P().account.CheckAccountSet(count);
    EXPECT_EQ(count, row.count);
    EXPECT_EQ(t_.Form().mnuViewStats.Enabled(), set);
    EXPECT_EQ(t_.Form().mnuUpgrade.Enabled(), set);
    EXPECT_EQ(t_.Detail(detail::kAccountStatus), set ? "Normal" : "No account set");
  }
  EXPECT_THAT(t_.Boxes().Texts(), IsEmpty());
}

}  // namespace
}  // namespace tallyo
