#include "account/account_verification.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/monitored_program.h"
#include "tests/support/table.h"

namespace tallyo {
namespace {

using test::kAccountPath;
using test::Table;
using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;
using Refusal = AccountRefusal;

constexpr const char* kBanned = "This account is banned. All access is forbiden";
constexpr const char* kOtherCompany =
    "This account does not belong to the registration number supplied";
constexpr const char* kOtherAccount = "This account does not belong to the supplied company name";
constexpr const char* kTitle = "        Tallyo  user: Acme, account: mysite";

// Company Acme and account mysite are typed and nothing is stored, on 2026-01-15.
class AccountVerificationTest : public testing::Test {
 protected:
  AccountVerificationTest() { Begin({}); }

  void Begin(std::initializer_list<std::string> links) {
    t_.GiveLinks(links);
    t_.Start();
    t_.Form().Text1[field::kCompany].SetText("Acme");
    t_.Form().Text1[field::kAccount].SetText("mysite");
    t_.Form().mnuManage.SetEnabled(false);
    t_.Form().mnuScrnImport.SetEnabled(false);
    t_.Form().TmnuDisTitle.SetCaption("title");
  }
  bool Verify() { return t_.P().verification.VerifyAccount(); }
  bool Verify(const std::string& record) {
    t_.server.Answer(kAccountPath, record);
    return Verify();
  }
  Refusal Why() { return t_.P().verification.LastRefusal(); }
  std::string Title() { return t_.Form().TmnuDisTitle.Caption(); }

  test::MonitoredProgram t_;
};

TEST_F(AccountVerificationTest, ActsOnEveryPairOfTheRecord) {
  const Table<const char*, Refusal, Texts, const char*> rows = {
      {test::kAccountRecord.data(), Refusal::None, {}, "Normal"},
      {"color=red,BAN=yes,x,ban=yes,Com=x,a=b=c\n", Refusal::None, {}, "Unknown"},
      {"ban=no \n", Refusal::Banned, {kBanned}, "Account Suspended"},
      {"ban=yes,ban=no\n", Refusal::Banned, {kBanned}, "Normal"},
      {"com=ACME\n", Refusal::OtherCompany, {kOtherCompany}, "Unknown"},
      {"acc=mysite\n\n", Refusal::OtherAccount, {kOtherAccount}, "Unknown"},
      {"acc=mysite", Refusal::OtherAccount, {kOtherAccount}, "Unknown"},
      {"com=Acme,acc=", Refusal::OtherAccount, {kOtherAccount}, "Unknown"},
      {"acc=x,ban=1,com=y,com=z,max=5\n",
       Refusal::OtherCompany,
       {kOtherAccount, kBanned, kOtherCompany, kOtherCompany},
       "Account Suspended"},
      {"max=0.5\n", Refusal::NoSlots, {}, "Unknown"}};
  for (const auto& [record, refusal, boxes, status] : rows) {
    SCOPED_TRACE(record);
    Begin({});
    EXPECT_EQ(Verify(record), refusal == Refusal::None);
    EXPECT_EQ(Why(), refusal);
    EXPECT_EQ(t_.Boxes().Texts(), boxes);
    EXPECT_EQ(t_.Detail(detail::kAccountStatus), status);
    EXPECT_EQ(t_.Detail(detail::kOtherStatus), "");
    EXPECT_EQ(Title(), kTitle);
    EXPECT_TRUE(t_.Form().mnuManage.Enabled()) << "whatever the result";
    EXPECT_FALSE(t_.Form().mnuScrnImport.Enabled()) << "no link is typed";
  }
  t_.Form().Text1[field::kLinkPath].SetText("http://h/f");
  EXPECT_FALSE(Verify("ban=yes\n"));
  EXPECT_TRUE(t_.Form().mnuScrnImport.Enabled());
}

TEST_F(AccountVerificationTest, CopiesTheTermsAndCountsTheSlotsThatAreLeft) {
  Begin({"a", "b", "c", "d", "e", "f", "g"});
  const Table<const char*, Refusal, const char*, int> rows = {
      {"5", Refusal::None, "-2", 5},
      {"7.5", Refusal::None, "0.5", 8},
      {"32767", Refusal::None, "32760", 32767},
      {"40000", Refusal::Unreadable, "39993", 32767},
      {"ten", Refusal::NoSlots, "-7", 0}};
  for (const auto& [max, refusal, left, slots] : rows) {
    SCOPED_TRACE(max);
    Verify("opn= 1/1/14 ,max=" + std::string(max) + ",ban=no,exp=02/28/2027\n");
    EXPECT_EQ(t_.Setting(names::kAccOpen), " 1/1/14 ");
    EXPECT_EQ(Why(), refusal);
    EXPECT_EQ(t_.Form().Label4[0].Caption(), left);
    EXPECT_EQ(t_.P().state.MaxSlots, slots);
  }
  EXPECT_EQ(t_.Detail(detail::kGoodThrough), "02/28/2027");
}

TEST_F(AccountVerificationTest, RefusesAnAccountOnItsLastGoodDay) {
  const Table<const char*, Refusal> rows = {{"1/16/2026", Refusal::None},
                                            {"01/15/2026", Refusal::Expired},
                                            {"12/31/2025", Refusal::Expired},
                                            {"02/29/2027", Refusal::Unreadable}};
  for (const auto& [date, refusal] : rows) {
    SCOPED_TRACE(date);
    EXPECT_EQ(Verify("exp=" + std::string(date) + ",ban=no\n"), refusal == Refusal::None);
    EXPECT_EQ(Why(), refusal);
    EXPECT_EQ(t_.Form().Label4[1].Caption(), date);
    EXPECT_EQ(t_.Detail(detail::kAccountStatus),
              refusal == Refusal::Unreadable ? "Unknown" : "Normal");
  }
  EXPECT_THAT(t_.Boxes().Texts(), IsEmpty());
}

TEST_F(AccountVerificationTest, EndsSilentlyWhereItFailsAndKeepsWhatWasSet) {
  const Table<const char*, const char*, const char*> rows = {
      {"opn=1,max=40000,ban=yes\n", "1", "Unknown"},
      {"opn=2,exp=soon,ban=yes\n", "2", "Unknown"},
      {"opn=3,ban=no,rest\n", "3", "Normal"},
      {"opn=4,\n", "4", "Unknown"}};
  for (const auto& [record, open, status] : rows) {
    SCOPED_TRACE(record);
    EXPECT_FALSE(Verify(record));
    EXPECT_EQ(t_.Setting(names::kAccOpen), open);
    EXPECT_EQ(t_.Detail(detail::kAccountStatus), status);
    EXPECT_EQ(t_.Detail(detail::kOtherStatus), "Not connected");
  }
  const std::string counted = t_.Setting(names::kBytesTransTotal);
  t_.server.RefuseConnections();
  EXPECT_FALSE(Verify());
  EXPECT_EQ(Why(), Refusal::NotReached);
  EXPECT_EQ(t_.Setting(names::kBytesTransTotal), counted);
  EXPECT_FALSE(t_.Form().mnuManage.Enabled());
  EXPECT_EQ(Title(), "title");
  EXPECT_THAT(t_.Boxes().Texts(), IsEmpty());
}

TEST_F(AccountVerificationTest, FindsNoAccountInAnEmptyReplyAndInOneWith404) {
  for (const char* record : {"", "opn=1/1/14,max=10,com=Acme 404,acc=mysite\n"}) {
    SCOPED_TRACE(record);
    Begin({});
    t_.Form().mnuManage.SetEnabled(true);
    t_.Form().mnuScrnImport.SetEnabled(true);
    EXPECT_FALSE(Verify(record));
    EXPECT_EQ(Why(), Refusal::NotFound);
    EXPECT_EQ(t_.Form().Label8.Caption(), "Account not found");
    EXPECT_FALSE(t_.Form().mnuManage.Enabled() || t_.Form().mnuScrnImport.Enabled());
    EXPECT_EQ(Title(), kTitle);
    EXPECT_EQ(t_.Setting(names::kAccOpen), "");
    EXPECT_THAT(t_.Boxes().Texts(), IsEmpty());
  }
}

TEST_F(AccountVerificationTest, AsksForTheRecordByTheNameAsTypedAndCountsIt) {
  t_.server.Answer("/Tallyo/accounts/", "ban=no\n");
  for (const char* unsent : {"", "my\nsite"}) {
    t_.Form().Text1[field::kAccount].SetText(unsent);
    EXPECT_EQ(Verify(), unsent == std::string()) << "no account is no reason to refuse";
  }
  EXPECT_THAT(t_.server.Requests(), IsEmpty());
  EXPECT_EQ(Title(), "title");
  t_.Form().Text1[field::kAccount].SetText("my site&#1");
  EXPECT_TRUE(Verify());
  EXPECT_THAT(t_.server.Requests(), ElementsAre("GET /Tallyo/accounts/my site&#1.txt HTTP/1.1"));
  EXPECT_EQ(t_.Setting(names::kBytesTransTotal), "30");
}

}  // namespace
}  // namespace tallyo
