#include "service/service.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "service/account_store.h"
#include "service/link_store.h"
#include "service/schema.h"
#include "tests/service/raw_client.h"
#include "tests/support/table.h"
#include "tests/support/temp_folder.h"

namespace tallyo::service {
namespace {

constexpr const char* kScript = "/cgi-bin/Tallyo/devstats.cgi?account=";

class ServiceTest : public testing::Test {
 protected:
  ServiceTest() {
    EXPECT_TRUE(AccountStore(other_).Add({"acme", "Acme", 2, "01/15/2014", "01/15/2027"}));
    EXPECT_TRUE(AccountStore(other_).Add({"my site", "Acme", 9, "01/15/2014", "01/15/2027"}));
  }

  // One link, http://x under the reference r, is there from the start.
  void StartWithLink() {
    ASSERT_EQ(LinkStore(other_).Add("acme", "r", "http://x").outcome, AddOutcome::Added);
    Start();
  }
  void Start(AllowedNetworks managers = AllowedNetworks::Loopback()) {
    service_ = std::make_unique<Service>(
        ServiceOptions{file_, *ListenAddress::Parse("127.0.0.1:0"), std::move(managers)},
        [](const std::string&) {});
    port_ = PortOf(service_->Url());
  }

  Reply Get(const std::string& target, std::string_view headerLines = "",
            std::string_view method = "GET") {
    return Ask(port_, target, headerLines, method);
  }
  std::string Add(const std::string& account, const std::string& reference,
                  const std::string& url) {
    return Get(kScript + account + "f.txt&action=add&fryname=" + reference + "&link=" + url).body;
  }
  std::string Remove(const std::string& account, const std::string& reference) {
    return Get(kScript + account + "f.txt&action=del&fryname=" + reference + "&link=x").body;
  }
  std::string Show(const std::string& account) {
    return Get(kScript + account + ".txt&action=show").body;
  }
  Reply Follow(const std::string& account, const std::string& reference,
               std::string_view headerLines = "", std::string_view method = "GET") {
    return Get("/cgi-bin/Tallyo/tallyo.cgi?acc=" + account + "&flnk=" + reference, headerLines,
               method);
  }

  test::TempFolder folder_;
  const std::filesystem::path file_ = folder_.Path() / "hits.db";
  Database other_ = OpenDatabase(file_, Database::WhenMissing::Create);  // another program's
  std::unique_ptr<Service> service_;
  std::uint16_t port_ = 0;
};

TEST_F(ServiceTest, NamesAnExistingReferenceBeforeAnExistingLinkAndBothBeforeALackOfSlots) {
  Start();
  EXPECT_EQ(Add("acme", "r", "http://x/1"), "<P>ok\n");
  EXPECT_EQ(Add("acme", "s", "http://x/2"), "<P>ok\n");
  EXPECT_EQ(Add("acme", "r", "http://x/2"), "<P>F Exists\n");
  EXPECT_EQ(Add("acme", "t", "http://x/2"), "<P>L Exists\n");
  EXPECT_EQ(Add("acme", "t", "http://x/3"), "<P>refused: no slot left\n");
  EXPECT_EQ(Add("my site", "r", "http://x/1"), "<P>ok\n") << "accounts do not share links";
  EXPECT_EQ(Remove("acme", "s"), "<P>ok\n");
  EXPECT_EQ(Remove("acme", "s"), "<P>refused: no such link\n");
  EXPECT_EQ(Follow("acme", "s").status, 404);
  EXPECT_EQ(Add("acme", "x&fryname=y&flnk=z", "http://x/&fryname=3&link=2"), "<P>ok\n");
  EXPECT_EQ(Show("acme"), "<P>0 r\n<P>0 x&fryname=y&flnk=z\n");
  EXPECT_NE(Follow("acme", "x&fryname=y&flnk=z").head.find("http://x/&fryname=3&link=2\r\n"),
            std::string::npos);
}

TEST_F(ServiceTest, RefusesBadValues) {
  Start();
  const std::string script = "/cgi-bin/Tallyo/devstats.cgi";
  const std::string add = "?account=acmef.txt&action=add";
  const test::Table<std::string, const char*> targets = {
      {add + "&fryname=&link=http://x", "the reference is empty"},
      {add + "&fryname=r&link=", "the link is empty"},
      {add + "&fryname=r&link=http://", "the link is no http:// or https:// address"},
      {add + "&fryname=r&link=http://x\t/y", "the link holds a control byte"},
      {add + "&fryname=r\x7F&link=http://x", "the reference holds a control byte"},
      {add + "&fryname=" + std::string(1025, 'r') + "&link=http://x", "the reference is too long"},
      {add + "&fryname=r&link=http://" + std::string(8186, 'x'), "the link is too long"},
      {add + "&link=http://x&fryname=r", "the reference is empty"},
      {"?account=ACMEf.txt&action=add&fryname=r&link=http://x", "unknown account"},
      {"?account=acme.txt&action=add&fryname=r&link=http://x", "unknown account"},
      {"?account=acme.txt&action=Show", "unknown action"},
      {"?action=show&account=acme.txt", "unknown action"}};
  for (const auto& [query, why] : targets) {
    EXPECT_EQ(Get(script + query).body, std::string("<P>refused: ") + why + "\n");
  }
  EXPECT_EQ(Show("acme"), "");
}

TEST_F(ServiceTest, LeadsVisitorsOnAndCountsThem) {
  Start();
  const std::string url = "http://x/a b?c=%0D%0A&d=" + std::string(8000, 'd');
  ASSERT_EQ(Add("my site", "a b", url), "<P>ok\n");
  for (const char* reference : {"a b", "a%20b"}) {
    const Reply reply = Follow("my site", reference);
    EXPECT_EQ(reply.status, 302);
    EXPECT_NE(reply.head.find("\r\nLocation: " + url + "\r\n"), std::string::npos);
    EXPECT_NE(reply.head.find("\r\nCache-Control: no-store\r\n"), std::string::npos);
  }
  EXPECT_EQ(Follow("my site", "a b", "", "HEAD").status, 302);
  EXPECT_EQ(Show("my site"), "<P>2 a b\n");
  EXPECT_EQ(Follow("my site", "a b%0D%0ASet-Cookie: x").status, 404);
  EXPECT_EQ(Follow("nobody", "a b").status, 404);
  EXPECT_EQ(Follow("my site", std::string("a b\0s", 5)).status, 400);
  EXPECT_EQ(Show("my site"), "<P>2 a b\n");
}

TEST_F(ServiceTest, TellsVisitsFromWhatOnlyLooksAheadOrResumes) {
  StartWithLink();
  const test::Table<const char*, bool> cases = {
      {"purpose: Prefetch", false},        {"Sec-Purpose: prefetch;prerender", false},
      {"X-Moz: prefetch", false},          {"Purpose: reading", true},
      {"Range: bytes=0-499, 1000-", true}, {"range: Bytes = 000-1", true},
      {"Range: bytes=01-", false},         {"Range: bytes=-500", false},
      {"Range: bytes=0", false},           {"Range:", false}};
  int visits = 0;
  for (const auto& [header, isVisit] : cases) {
    EXPECT_EQ(Follow("acme", "r", header + std::string("\r\n")).status, 302);
    visits += isVisit ? 1 : 0;
    EXPECT_EQ(Show("acme"), "<P>" + std::to_string(visits) + " r\n") << header;
  }
}

TEST_F(ServiceTest, ServesAccountRecordsAsTheyAreNow) {
  Start();
  const Reply record = Get("/Tallyo/accounts/my site.txt");
  EXPECT_EQ(record.status, 200);
  EXPECT_EQ(record.body, "opn=01/15/2014,max=9,exp=01/15/2027,ban=no,com=Acme,acc=my site\n");
  ASSERT_EQ(Add("acme", "r", "http://x/1"), "<P>ok\n");

  AccountChange change;
  change.banned = true;
  change.maxLinks = 5;
  ASSERT_TRUE(AccountStore(other_).Change("acme", change));
  EXPECT_EQ(Get("/Tallyo/accounts/acme.txt").body,
            "opn=01/15/2014,max=5,exp=01/15/2027,ban=yes,com=Acme,acc=acme\n");
  EXPECT_EQ(Add("acme", "s", "http://x/2"), "<P>refused: the account is banned\n");
  EXPECT_EQ(Follow("acme", "r").status, 302) << "visitors are not made to pay for it";
  EXPECT_EQ(Show("acme"), "<P>1 r\n");
  EXPECT_EQ(Remove("acme", "r"), "<P>ok\n");
}

TEST_F(ServiceTest, AnswersEverythingElseWithAPage) {
  Start();
  for (const std::string target :
       {"/Tallyo/accounts/none.txt", "/Tallyo/accounts/../accounts/acme.txt", "/favicon.ico",
        "/Tallyo/accounts/%61cme.txt", "/cgi-bin/Tallyo/devstats.cgi?account=none.txt&action=show",
        "/cgi-bin/Tallyo/tallyo.cgi?acc=acme", "/cgi-bin/Tallyo/tallyo.cgi?flnk=r&acc=acme",
        "/cgi-bin/Tallyo/devstats.cgi?account=acme&action=show", "/Tallyo/accounts/acme",
        "/%54allyo/support.html"}) {
    const Reply reply = Get(target);
    EXPECT_EQ(reply.status, 404) << target;
    EXPECT_NE(reply.body.find("404"), std::string::npos) << target;
    EXPECT_EQ(reply.body.find("<P>"), std::string::npos) << target;
    EXPECT_EQ(reply.body.find('='), std::string::npos) << target;
  }
  for (const std::string target :
       {"/", "/Tallyo/signupinfo.html", "http://host:8080/Tallyo/support.html", "HTTP://host",
        "/Tallyo/upgradeinfo.html"}) {
    const Reply reply = Get(target);
    EXPECT_EQ(reply.status, 200) << target;
    EXPECT_NE(reply.head.find("text/html"), std::string::npos) << target;
    EXPECT_EQ(reply.body.find("404"), std::string::npos) << target;
  }
}

TEST_F(ServiceTest, LetsOnlyAllowedAddressesManage) {
  const std::string record = "/Tallyo/accounts/acme.txt";
  Start(AllowedNetworks({*Network::Parse("10.0.0.0/8")}));
  const Reply refused = Get(record, "X-Forwarded-For: 10.0.0.1\r\n");
  EXPECT_EQ(refused.status, 403);
  EXPECT_NE(refused.body.find("404"), std::string::npos) << "the client has no account here";
  EXPECT_EQ(refused.body.find('='), std::string::npos) << "the client would take it for a record";
  EXPECT_EQ(Get("/Tallyo/support.html").status, 200);
  Start();
  EXPECT_EQ(Get(record, "Sec-Fetch-Site: cross-site\r\n").status, 403) << "a page's request";
  EXPECT_EQ(Get(record, "Sec-Fetch-Site: none\r\n").status, 200);
}

TEST_F(ServiceTest, AnswersVisitorsWhileTheDatabaseIsBusyAndLosesNoVisit) {
  StartWithLink();
  {
    const Transaction busy(other_, Transaction::Kind::Write);
    for (int i = 0; i < 5; ++i) EXPECT_EQ(Follow("acme", "r").status, 302);
  }
  EXPECT_EQ(Show("acme"), "<P>5 r\n");
  EXPECT_TRUE(service_->Stop());
  EXPECT_EQ(LinkStore(other_).Counts("acme").at(0).hits, 5);
  Start();
  EXPECT_EQ(Follow("acme", "r").status, 302);
  EXPECT_EQ(Show("acme"), "<P>6 r\n");
}

TEST_F(ServiceTest, OnlyReadsAndKeepsAConnectionForSeveralRequests) {
  StartWithLink();
  for (const Reply& reply :
       {Follow("acme", "r", "Content-Length: 0\r\n", "POST"),
        Get(kScript + std::string("acmef.txt&action=del&fryname=r&link=x"), "", "HEAD")}) {
    EXPECT_EQ(reply.status, 405);
    EXPECT_EQ(reply.body.find('='), std::string::npos);
    EXPECT_NE(reply.head.find("\r\nAllow: GET, HEAD\r\n"), std::string::npos);
  }
  const std::string visit =
      "GET /cgi-bin/Tallyo/tallyo.cgi?acc=acme&flnk=r HTTP/1.1\r\nHost: x\r\n";
  const RawConnection connection(port_);
  connection.Send(visit + "Content-Length: 3\r\n\r\nabc" + visit + "\r\nGET " + kScript +
                  "acme.txt&action=show HTTP/1.1\r\nHost: x\r\n\r\n" + visit +
                  "Connection: close\r\n\r\n");
  const std::string all = connection.ReadToTheEnd();
  EXPECT_NE(all.find("<P>2 r\n"), std::string::npos) << all;
  EXPECT_EQ(Show("acme"), "<P>3 r\n");
}

}  // namespace
}  // namespace tallyo::service
