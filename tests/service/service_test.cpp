#include "service/service.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

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

TEST_F(ServiceTest, RegistersShowsAndRemovesLinksWithRawTexts) {
  Start();
  EXPECT_EQ(Add("my site", "R&D #1 \"x\"", "https://x/a b?c=1&link=2"), "<P>ok\n");
  EXPECT_EQ(Add("my site", "caf\xC3\xA9\xFF", "http://y"), "<P>ok\n");
  EXPECT_EQ(Show("my site"), "<P>0 R&D #1 \"x\"\n<P>0 caf\xC3\xA9\xFF\n");
  EXPECT_EQ(Add("my site", "x&fryname=y&flnk=z", "http://x/&fryname=3"), "<P>ok\n");
  EXPECT_NE(Follow("my site", "R&D #1 \"x\"").head.find("https://x/a b?c=1&link=2\r\n"),
            std::string::npos);
  EXPECT_NE(Follow("my site", "x&fryname=y&flnk=z").head.find("http://x/&fryname=3\r\n"),
            std::string::npos);
  EXPECT_EQ(Remove("my site", "x&fryname=y&flnk=z"), "<P>ok\n");
  EXPECT_EQ(Remove("my site", "R&D #1 \"x\""), "<P>ok\n");
  EXPECT_EQ(Remove("my site", "R&D #1 \"x\""), "<P>refused: no such link\n");
  EXPECT_EQ(Show("my site"), "<P>0 caf\xC3\xA9\xFF\n");
}

TEST_F(ServiceTest, NamesAnExistingReferenceBeforeAnExistingLinkAndBothBeforeALackOfSlots) {
  Start();
  EXPECT_EQ(Add("acme", "r", "http://x/1"), "<P>ok\n");
  EXPECT_EQ(Add("acme", "s", "http://x/2"), "<P>ok\n");
  EXPECT_EQ(Add("acme", "r", "http://x/2"), "<P>F Exists\n");
  EXPECT_EQ(Add("acme", "t", "http://x/2"), "<P>L Exists\n");
  EXPECT_EQ(Add("acme", "t", "http://x/3"), "<P>refused: no slot left\n");
  EXPECT_EQ(Add("my site", "r", "http://x/1"), "<P>ok\n") << "accounts do not share links";
  EXPECT_EQ(Remove("acme", "s"), "<P>ok\n");
  EXPECT_EQ(Add("acme", "t", "http://x/3"), "<P>ok\n");
}

TEST_F(ServiceTest, RefusesBadValues) {
  Start();
  for (const auto& [reference, url] :
       test::Table<std::string, std::string>{{"", "http://x"},
                                             {"r", ""},
                                             {"r", "javascript:alert(1)"},
                                             {"r", "http://"},
                                             {"r", "http://x\t/y"},
                                             {"r\x7F", "http://x"},
                                             {std::string(1025, 'r'), "http://x"},
                                             {"r", "http://" + std::string(8186, 'x')}}) {
    EXPECT_TRUE(Add("acme", reference, url).starts_with("<P>refused: ")) << reference << url;
  }
  EXPECT_EQ(Add("ACME", "r", "http://x"), "<P>refused: unknown account\n");
  const std::string script = "/cgi-bin/Tallyo/devstats.cgi";
  const test::Table<std::string, const char*> targets = {
      {"?account=acmef.txt&action=add&link=http://x&fryname=r", "the reference is empty"},
      {"?account=acme.txt&action=add&fryname=r&link=http://x", "unknown account"},
      {"?account=acme.txt&action=Show", "unknown action"},
      {"?action=show&account=acme.txt", "unknown action"},
      {"", "unknown action"}};
  for (const auto& [query, why] : targets) {
    EXPECT_EQ(Get(script + query).body, std::string("<P>refused: ") + why + "\n") << query;
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
  const test::Table<const char*, bool> cases = {{"purpose: Prefetch", false},
                                                {"Sec-Purpose: prefetch;prerender", false},
                                                {"X-Moz: prefetch", false},
                                                {"Purpose: reading", true},
                                                {"User-Agent: prefetch", true},
                                                {"Range: bytes=0-499, 1000-", true},
                                                {"range: Bytes = 000-1", true},
                                                {"Range: bytes=01-", false},
                                                {"Range: bytes=-500", false},
                                                {"Range: bytes=0", false},
                                                {"Range:", false}};
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

TEST_F(ServiceTest, OnlyReads) {
  StartWithLink();
  for (const Reply& reply :
       {Follow("acme", "r", "Content-Length: 0\r\n", "POST"), Follow("acme", "r", "", "DELETE"),
        Get(kScript + std::string("acmef.txt&action=del&fryname=r&link=x"), "", "HEAD")}) {
    EXPECT_EQ(reply.status, 405);
    EXPECT_NE(reply.head.find("\r\nAllow: GET, HEAD\r\n"), std::string::npos);
  }
  EXPECT_EQ(Show("acme"), "<P>0 r\n");
}

TEST_F(ServiceTest, LetsOnlyAllowedAddressesManage) {
  StartWithLink();
  Start(AllowedNetworks({*Network::Parse("10.0.0.0/8")}));
  for (const std::string target :
       {"/Tallyo/accounts/acme.txt", "/Tallyo/accounts/none.txt",
        "/cgi-bin/Tallyo/devstats.cgi?account=acme.txt&action=show",
        "/cgi-bin/Tallyo/devstats.cgi?account=acmef.txt&action=del&fryname=r&link=x"}) {
    const Reply reply = Get(target, "X-Forwarded-For: 10.0.0.1\r\n");
    EXPECT_EQ(reply.status, 403) << target;
    EXPECT_EQ(reply.body.find("404"), std::string::npos) << target;
  }
  EXPECT_EQ(Follow("acme", "r").status, 302);
  EXPECT_EQ(Get("/Tallyo/support.html").status, 200);
  Start();
  const std::string record = "/Tallyo/accounts/acme.txt";
  EXPECT_EQ(Get(record, "Sec-Fetch-Site: cross-site\r\n").status, 403) << "a page's request";
  EXPECT_EQ(Get(record, "Sec-Fetch-Site: none\r\n").status, 200);
}

TEST_F(ServiceTest, CountsOutliveTheService) {
  StartWithLink();
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Follow("acme", "r").status, 302);
  EXPECT_TRUE(service_->Stop());
  EXPECT_EQ(LinkStore(other_).Counts("acme").at(0).hits, 3);
  Start();
  EXPECT_EQ(Follow("acme", "r").status, 302);
  EXPECT_EQ(Show("acme"), "<P>4 r\n");
}

TEST_F(ServiceTest, AnswersVisitorsWhileTheDatabaseIsBusy) {
  StartWithLink();
  {
    const Transaction busy(other_, Transaction::Kind::Write);
    for (int i = 0; i < 5; ++i) EXPECT_EQ(Follow("acme", "r").status, 302);
  }
  EXPECT_EQ(Show("acme"), "<P>5 r\n");
  EXPECT_TRUE(service_->Stop());
  EXPECT_EQ(LinkStore(other_).Counts("acme").at(0).hits, 5);
}

TEST_F(ServiceTest, KeepsAConnectionForSeveralRequests) {
  StartWithLink();
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

TEST_F(ServiceTest, SurvivesIdleConnectionsSlowSendersAndHugeRequests) {
  StartWithLink();
  std::vector<std::unique_ptr<RawConnection>> others;
  for (int i = 0; i < 1000; ++i) {
    others.push_back(std::make_unique<RawConnection>(port_));
    ASSERT_TRUE(others.back()->IsOpen());
    if (i % 2 == 0) others.back()->Send("GET /Tallyo/supp");
  }
  const Reply huge = Follow("acme", std::string(std::size_t{1} << 20U, 'r'));
  EXPECT_TRUE(huge.status == 414 || huge.status == 431 || huge.status == 0) << huge.status;
  EXPECT_EQ(Follow("acme", "r").status, 302);
  EXPECT_EQ(Show("acme"), "<P>1 r\n");
  EXPECT_TRUE(service_->Stop());
}

}  // namespace
}  // namespace tallyo::service
