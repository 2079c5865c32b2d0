#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <future>
#include <map>
#include <string>
#include <vector>

#include "tests/force/checked_rows.h"
#include "tests/force/running_service.h"
#include "tests/service/raw_client.h"
#include "tests/support/temp_folder.h"

namespace tallyo::force {
namespace {

using std::string_literals::operator""s;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr const char* kShow = "/cgi-bin/Tallyo/devstats.cgi?account=";
constexpr const char* kFollow = "/cgi-bin/Tallyo/tallyo.cgi?acc=";

// A service with one link "r" of "acme" and one link "o" of "other".
class HostileRequests : public testing::Test {
 protected:
  HostileRequests() {
    EXPECT_EQ(RunToEnd({ProgramFile("tallyo-service"), "--database", service_.Database(), "account",
                        "add", "other", "--company", "O", "--max", "9", "--exp", "01/01/2099"})
                  .Complaint(),
              "");
    EXPECT_EQ(service_.Add("r", "http://x/r"), "<P>ok\n");
    EXPECT_EQ(service_.Manage("otherf.txt&action=add&fryname=o&link=http://x/o"), "<P>ok\n");
    EXPECT_EQ(Follow("other", "o").status, 302);
  }
  // Whatever came: nobody noticed, and no report of a sanitizer either.
  ~HostileRequests() override {
    EXPECT_EQ(service_.Manage("other.txt&action=show"), "<P>1 o\n");
    EXPECT_EQ(service::Ask(service_.Port(), "/Tallyo/accounts/other.txt").status, 200);
    EXPECT_EQ(service_.End(SIGTERM).Complaint(), "");
    EXPECT_EQ(StoredCounts(service_.Database()).at("o"), 1);
  }

  service::Reply Follow(const std::string& account, const std::string& reference) {
    return service::Ask(service_.Port(), kFollow + account + "&flnk=" + reference);
  }
  std::string SendRaw(const std::string& bytes) {
    const service::RawConnection connection(service_.Port());
    connection.Send(bytes);
    connection.EndSending();
    return connection.ReadToTheEnd();
  }

  test::TempFolder folder_;
  RunningService service_{folder_.Path() / "hits.db"};
};

std::string Repeated(const std::string& text, int times) {
  std::string all;
  while (times-- > 0) all += text;
  return all;
}

TEST_F(HostileRequests, AreAnsweredOrEndedAndChangeNothing) {
  std::string everyByte;
  for (int byte = 0; byte < 256; ++byte) everyByte += static_cast<char>(byte);
  std::vector<std::string> targets = {kFollow + Repeated("&flnk=r", 5000),
                                      "",
                                      "*",
                                      "//",
                                      "?",
                                      "&&&===",
                                      "%",
                                      "%%%zz%0",
                                      "/%00",
                                      "\xFF\xFE",
                                      "/..%2f..%2fhits.db",
                                      "http://",
                                      "http://[::1",
                                      "x:y"};
  for (const std::string& value :
       {""s, "%"s, "%zz%0"s, "%00"s, "\0r"s, "r\0"s, "\x01\x1B[2J\x7F"s, "' OR '1'='1"s,
        "\"; DROP TABLE links; --"s, "\xC3\x28\xF5\x80\xFF"s, everyByte, std::string(65536, 'r'),
        Repeated("%41", 5000), Repeated("r=&", 100)}) {
    for (const std::string& prefix :
         {kFollow + ""s, kFollow + "acme&flnk="s, kShow + ""s, kShow + "acme"s,
          kShow + "acmef.txt&action="s, kShow + "acmef.txt&action=del&fryname="s,
          kShow + "acmef.txt&action=add&fryname=s&link="s, "/Tallyo/accounts/"s}) {
      targets.push_back(prefix + value);
      targets.push_back(prefix + value + ".txt&action=show");
    }
  }
  for (const std::string& target : targets) {
    for (const char* ending : {" HTTP/1.1\r\nHost: x\r\nConnection: close\r\n\r\n",
                               " HTTP/1.0\r\n\r\n", "\r\n\r\n", "\n"}) {
      SendRaw("GET " + target + ending);
    }
    ASSERT_EQ(Follow("acme", "none").status, 404) << target.substr(0, 80);
  }
  const std::string all = service_.Manage("acme.txt&action=show");
  EXPECT_THAT(all, HasSubstr(" r\n"));
  EXPECT_EQ(std::ranges::count(all, '\n'), 1) << all;
}

TEST_F(HostileRequests, ThatAreNoHttpAreEndedToo) {
  // All at once: an end that does not come would be waited for until the connection has been idle
  // for too long.
  std::vector<std::future<void>> ended;
  const std::string visit =
      "GET "s + kFollow + "acme&flnk=r HTTP/1.1\r\nHost: x\r\nConnection: close\r\n";
  for (const std::string& bytes :
       {"\0\0\0\0"s, "\r\n\r\n\r\n"s, "\x16\x03\x01\x02\x00\x01"s, "GET"s, Repeated("A", 100'000),
        visit + Repeated("X: y\r\n", 20'000) + "\r\n", visit + "Content-Length: -1\r\n\r\n",
        visit + "Content-Length: 99999999999999999999\r\n\r\n",
        visit + "Content-Length: 1\r\nContent-Length: 2\r\n\r\nxx",
        visit + "Transfer-Encoding: chunked\r\n\r\nFFFFFFFFFFFFFFFFFF\r\n",
        visit + "Transfer-Encoding: chunked\r\n\r\nzz\r\n",
        visit + "Range: bytes=" + Repeated("9", 1000) + "-\r\n\r\n", visit + ": \r\n\0: x\r\n\r\n"s,
        visit + "Host: " + std::string(31'000, 'h') + "\r\n\r\n"}) {
    ended.push_back(std::async(std::launch::async, [this, bytes] { SendRaw(bytes); }));
    ASSERT_EQ(Follow("acme", "none").status, 404) << bytes.substr(0, 80);
  }
  ended.clear();  // waits for each
  EXPECT_EQ(Follow("acme", "none").status, 404);
}

TEST_F(HostileRequests, CannotPutALinkThatLeadsElsewhereThanToHttp) {
  for (const char* link : {"javascript:alert(1)", "file:///etc/passwd", "//x", " http://x",
                           "http:x", "http://", "http\x01://x", "view-source:http://x"}) {
    EXPECT_THAT(service_.Add("s", link), StartsWith("<P>refused: ")) << link;
  }
  EXPECT_EQ(service_.Add("s", "HTTPS://x"), "<P>ok\n");
}

TEST_F(HostileRequests, CannotPutALineIntoTheAnswerToAVisitor) {
  int number = 0;
  for (const std::string& breaking : {"\r\n"s, "\n"s, "\r"s, "%0D%0A"s, "%0a"s, "\v"s, "\f"s, "\0"s,
                                      "\x85"s, "\xE2\x80\xA8"s, "\xC4\x8D\xC4\x8A"s}) {
    const std::string reference = "s" + std::to_string(++number);
    const std::string link = "http://x/" + std::to_string(number);
    static_cast<void>(service_.Add(reference, link + breaking + "Set-Cookie: a=b"));
    for (const std::string& followed : {reference, reference + breaking + "Set-Cookie: a=b"}) {
      const service::Reply reply = Follow("acme", followed);
      for (const char* lineEnd : {"\n", "\r"}) {
        EXPECT_THAT(reply.head, Not(HasSubstr(lineEnd + "Set-Cookie"s))) << number;
      }
      EXPECT_EQ(reply.head.find("Location:"), reply.head.rfind("Location:")) << number;
    }
  }
}

TEST_F(HostileRequests, AreCountedForExactlyTheLinkTheyName) {
  const std::vector<std::string> references = {"'); DELETE FROM links; --",
                                               "\" OR \"\"=\"",
                                               "%27 OR 1=1",
                                               "100%",
                                               "%2",
                                               "\xFF\xFE",
                                               "r ",
                                               " r",
                                               "R",
                                               "a=b&c=d",
                                               "../r",
                                               "<script>",
                                               "r#x",
                                               std::string(1024, 'r')};
  for (const std::string& reference : references) {
    ASSERT_EQ(service_.Add(reference, "http://x/q?" + reference), "<P>ok\n") << reference;
    ASSERT_EQ(Follow("acme", reference).status, 302) << reference;
  }
  std::map<std::string, std::int64_t> expected{{"r", 0}};
  for (const std::string& reference : references) expected[reference] = 1;
  EXPECT_EQ(service_.Counters(), expected);
  for (const std::string& reference : references) service_.Remove(reference);
  EXPECT_EQ(service_.Manage("acme.txt&action=show"), "<P>0 r\n");
}

}  // namespace
}  // namespace tallyo::force
