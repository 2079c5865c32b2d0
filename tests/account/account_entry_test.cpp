#include "account/account_entry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/support/monitored_program.h"
#include "tests/support/table.h"

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
  void Type(const char* company, const char* account) {
    t_.Form().Text1[field::kCompany].SetText(company);
    t_.Form().Text1[field::kAccount].SetText(account);
  }
  std::string Stored() { return t_.Setting(names::kUser) + "|" + t_.Setting(names::kAccount); }

  test::MonitoredProgram t_;
};

TEST_F(AccountEntryTest, StoresThePairThatTheServiceAcceptedAndKeepsItWhereANewOneIsRefused) {
  t_.GiveAccount(10, "01/15/2027", false);
  Type("Acme", "mysite");
  t_.server.Hold(test::kAccountPath);
  t_.DuringRequest(1, [&] { Type("Other", "other"); });
  EXPECT_TRUE(t_.P().account.SaveAccount());
  EXPECT_EQ(Stored(), "Acme|mysite");
  EXPECT_THAT(t_.Boxes().Texts(),
              ElementsAre("Welcome Acme Your account information has been saved"));
  EXPECT_EQ(t_.Form().TmnuDisTitle.Caption(), "        Tallyo  user: Acme, account: mysite");
  EXPECT_FALSE(t_.Form().mnuSave.Enabled());
  EXPECT_EQ(t_.Form().Focused(), &t_.Form().Text1[field::kLinkPath]);
  t_.Form().SetFocus(t_.Form().Text1[field::kSizeKb]);
  Type("New", "mysite");
  for (const char* record : {"com=NEW,acc=mysite\n", "404 Not Found", "com=New,rest\n"}) {
    t_.server.Answer(test::kAccountPath, record);
    EXPECT_FALSE(t_.P().account.SaveAccount());
    EXPECT_EQ(Stored(), "Acme|mysite");
    EXPECT_EQ(t_.Boxes().Shown().size(), 2U) << "what the check says";
    EXPECT_EQ(t_.Form().Focused(), &t_.Form().Text1[field::kSizeKb]);
  }
}

TEST_F(AccountEntryTest, TellsByTheStoredPairWhetherAnAccountIsSet) {
  const test::Table<const char*, const char*, int> rows = {
      {"", "", 0}, {"Acme", "", 1}, {"", "mysite", 1}, {"Acme", "mysite", 2}};
  for (const auto& [company, account, expected] : rows) {
    t_.Set(names::kUser, company);
    t_.Set(names::kAccount, account);
    const bool set = expected == 2;
    t_.Form().mnuViewStats.SetEnabled(!set);
    t_.Form().mnuUpgrade.SetEnabled(!set);
    t_.Form().ListView3.SetValue(detail::kAccountStatus, 1, "Normal");
    std::int16_t count = 0;
    t_.P().account.CheckAccountSet(count);
    EXPECT_EQ(count, expected);
    EXPECT_EQ(t_.Form().mnuViewStats.Enabled(), set);
    EXPECT_EQ(t_.Form().mnuUpgrade.Enabled(), set);
    EXPECT_EQ(t_.Detail(detail::kAccountStatus), set ? "Normal" : "No account set");
  }
  EXPECT_THAT(t_.Boxes().Texts(), IsEmpty());
}

}  // namespace
}  // namespace tallyo
