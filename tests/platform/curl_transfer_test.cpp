#include "platform/curl_transfer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <stdexcept>
#include <string>

#include "platform/transport_failure.h"
#include "tests/support/scripted_server.h"
#include "tests/support/table.h"
#include "tests/support/test_pump.h"

namespace tallyo {
namespace {

using test::Reply;
using test::ScriptedServer;
using test::Table;
using test::TestPump;
using test::Then;
using testing::ElementsAre;
using testing::HasSubstr;
using Reason = TransportFailure::Reason;

constexpr std::size_t kMostBodyBytes = 16UL * 1024 * 1024;

class CurlTransferTest : public testing::Test {
 protected:
  std::string Get(const std::string& address) { return transfer_.Get({address, 10}, pump_); }

  std::string Follow(const std::string& path) {
    return transfer_.Get({server_.Url(path), 10, true}, pump_);
  }

  // The message of a failure, HOST standing for the server.
  std::string Failure(const TransferRequest& request, Reason reason = Reason::Failed) {
    try {
      return "got " + std::to_string(transfer_.Get(request, pump_).size()) + " bytes";
    } catch (const TransportFailure& failure) {
      EXPECT_EQ(failure.Why(), reason) << failure.what();
      std::string message = failure.what();
      const auto host = message.find(server_.HostAndPort());
      if (host != std::string::npos) message.replace(host, server_.HostAndPort().size(), "HOST");
      return message;
    }
  }

  ScriptedServer server_;
  TestPump pump_;
  CurlTransfer transfer_{"Tallyo/1.1"};
};

TEST_F(CurlTransferTest, SendsEveryTargetByteForByte) {
  server_.Answer("/", "ok");
  for (const char* target :
       {"/a?", "/?a?b", "/a%20b%2e%2E%zz",
        "/cgi-bin/x.cgi?account=my site#1.txt&link=http://a/../b", "/a/../b", "/a/./b/.", "/..",
        "/%2e%2e/a", "//a//b", "/#", "/ ", "/caf\xC3\xA9?\xFF\x80", "/|<>\"{}[]^`\\~'*!$,;:@",
        "/?|<>\"{}[]^`\\"}) {
    EXPECT_EQ(Get("http://" + server_.HostAndPort() + target), "ok");
    EXPECT_EQ(server_.Requests().back(), std::string("GET ") + target + " HTTP/1.1");
  }
  EXPECT_EQ(server_.Connections(), 1);
}

TEST_F(CurlTransferTest, SendsAPlainRequestAndNothingOfTheOneBefore) {
  server_.Answer("/", "ok");
  Get("http://user:word@" + server_.HostAndPort() + "/a b");
  Get(server_.Url("/c"));
  ASSERT_EQ(server_.RawRequests().size(), 2U);
  EXPECT_THAT(server_.RawRequests()[0], HasSubstr("\r\nAuthorization: Basic dXNlcjp3b3Jk\r\n"));
  EXPECT_EQ(server_.RawRequests()[1], "GET /c HTTP/1.1\r\nHost: " + server_.HostAndPort() +
                                          "\r\nUser-Agent: Tallyo/1.1\r\nAccept: */*\r\n\r\n");
}

TEST_F(CurlTransferTest, ReturnsTheBodyOfEveryWholeAnswerAsItWasSent) {
  const std::string binary("a\r\n\0b", 5);
  const Table<std::string, Then, std::string> cases = {
      {"HTTP/1.1 500 No\r\nContent-Length: 5\r\n\r\n" + binary, Then::KeepAlive, binary},
      {"HTTP/1.1 302 Go\r\nLocation: /x\r\nContent-Length: 4\r\n\r\ngone", Then::KeepAlive, "gone"},
      {"HTTP/1.1 200 OK\r\n\r\nuntil the end", Then::Close, "until the end"},
      {"HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n2\r\nab\r\n1\r\nc\r\n0\r\n\r\n",
       Then::KeepAlive, "abc"},
      {"HTTP/1.1 200 OK\r\nContent-Encoding: gzip\r\nContent-Length: 3\r\n\r\nraw", Then::KeepAlive,
       "raw"},
      {"HTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\nok", Then::Reset, "ok"}};
  for (const auto& [answer, then, body] : cases) {
    server_.AnswerRaw("/", answer, then);
    EXPECT_EQ(Get(server_.Url()), body) << answer;
  }
}

TEST_F(CurlTransferTest, FailsWhereTheAnswerIsNotWholeOrNone) {
  const std::string ok = "HTTP/1.1 200 OK\r\n";
  const Table<std::string, Then, std::string> cases = {
      {"", Then::Close, "HOST closed the connection without an answer"},
      {"", Then::Reset, "the connection to HOST was lost"},
      {ok + "Content-Length: 5\r\n\r\nabcd", Then::Close, "the answer of HOST was cut short"},
      {ok + "Content-Length: 5\r\n\r\nabcd", Then::Reset, "the connection to HOST was lost"},
      {ok + "Transfer-Encoding: chunked\r\n\r\n3\r\nabc\r\n", Then::Close,
       "the answer of HOST was cut short"},
      {"\x1B[31mnot\x07 HTTP\r\n", Then::Close, "the answer of HOST is not HTTP"},
      {ok + "X: " + std::string(60000, 'x') + "\r\n" + "Y: " + std::string(90000, 'y') + "\r\n" +
           "Z: " + std::string(90000, 'z') + "\r\n" + "A: " + std::string(60000, 'a') + "\r\n\r\n",
       Then::Hold, "the header of the answer of HOST is larger than 256 KiB"},
      {ok + "Content-Length: " + std::to_string(kMostBodyBytes + 1) + "\r\n\r\n", Then::Hold,
       "the answer of HOST is larger than 16 MiB"}};
  server_.Answer("/well", "well");
  for (const auto& [bytes, then, message] : cases) {
    const int connections = server_.Connections();
    server_.AnswerRaw("/bad", bytes, then);
    EXPECT_EQ(Failure({server_.Url("/bad"), 10}), message);
    EXPECT_EQ(Get(server_.Url("/well")), "well");
    EXPECT_GT(server_.Connections(), connections) << "a broken connection is not kept";
  }
  server_.RefuseConnections();
  EXPECT_EQ(Failure({server_.Url(), 10}), "could not connect to HOST");
  EXPECT_EQ(Failure({"http://" + std::string(64, 'h') + "/x", 10}),
            "could not find the host " + std::string(64, 'h'));
  EXPECT_EQ(Failure({"ftp://h/", 10}, Reason::BadAddress),
            "the address does not begin with http:// or https://");
}

TEST_F(CurlTransferTest, TakesABodyOfSixteenMebibytesAndNotAByteMore) {
  const std::string most(kMostBodyBytes, 'x');
  const std::string untilTheEnd = "HTTP/1.1 200 OK\r\n\r\n";
  server_.Answer("/announced", most);
  server_.AnswerRaw("/most", untilTheEnd + most, Then::Close);
  server_.AnswerRaw("/more", untilTheEnd + most + "x", Then::Close);
  server_.AnswerEndlessly("/endless", untilTheEnd, std::string(65536, 'x'));
  EXPECT_EQ(Get(server_.Url("/announced")), most);
  EXPECT_EQ(Get(server_.Url("/most")), most);
  EXPECT_EQ(Failure({server_.Url("/more"), 10}), "the answer of HOST is larger than 16 MiB");
  EXPECT_EQ(Failure({server_.Url("/endless"), 60}), "the answer of HOST is larger than 16 MiB");
}

TEST_F(CurlTransferTest, GivesUpAfterTheTimeOut) {
  server_.Hold("/held");
  server_.AnswerRaw("/begun", "HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nab", Then::Hold);
  server_.AnswerWith("/hop", {.status = 302, .headers = {"Location: /held"}});
  EXPECT_EQ(Failure({server_.Url("/begun"), 1}), "no answer from HOST within 1 second");
  EXPECT_EQ(Failure({server_.Url("/hop"), 0, true}), "no answer from HOST within 1 second");
}

TEST_F(CurlTransferTest, RefusesASecondFetchInsideTheFirstAndFinishesTheFirst) {
  server_.Hold("/first");
  server_.Answer("/", "ok");
  bool tried = false;
  TestPump pump([&] {
    if (tried || server_.Requests().empty()) return;
    tried = true;
    EXPECT_EQ(Failure({server_.Url("/second"), 10}, Reason::Busy),
              "another document is being fetched");
    server_.Release();
  });
  EXPECT_EQ(transfer_.Get({server_.Url("/first"), 10}, pump), "ok");
  EXPECT_TRUE(tried);
  EXPECT_THAT(server_.Requests(), ElementsAre("GET /first HTTP/1.1"));
}

TEST_F(CurlTransferTest, PassesOnWhatThePumpThrows) {
  server_.Hold("/held");
  server_.Answer("/", "ok");
  TestPump ends;
  ends.End();
  EXPECT_THROW((void)transfer_.Get({server_.Url("/never"), 10}, ends), ProgramEnded);
  EXPECT_TRUE(server_.Requests().empty());

  TestPump endsLater([&] {
    if (!server_.Requests().empty()) endsLater.End();
  });
  EXPECT_THROW((void)transfer_.Get({server_.Url("/held"), 10}, endsLater), ProgramEnded);
  TestPump breaks([] { throw std::logic_error("broken"); });
  EXPECT_THROW((void)transfer_.Get({server_.Url("/held"), 10}, breaks), std::logic_error);
  EXPECT_EQ(Get(server_.Url()), "ok");
}

TEST_F(CurlTransferTest, FollowsRedirectsWhereItIsToldTo) {
  server_.Answer("/", "arrived");
  const Table<int, std::string, const char*> cases = {
      {301, "other", "GET /dir/other HTTP/1.1"},
      {302, "/a b?c d#e", "GET /a%20b?c+d HTTP/1.1"},
      {303, server_.Url("/whole"), "GET /whole HTTP/1.1"},
      {307, "../up", "GET /up HTTP/1.1"},
      {308, "?query", "GET /dir/from%20here?query HTTP/1.1"}};
  for (const auto& [status, location, next] : cases) {
    server_.AnswerWith("/dir/from here", {status, {"Location: " + location}, "moved"});
    EXPECT_EQ(Follow("/dir/from here"), "arrived");
    EXPECT_EQ(server_.Requests().back(), next);
  }
  for (const Reply& leadsNowhere : {Reply{302, {}, "stay"}, Reply{302, {"Location:"}, "stay"},
                                    Reply{200, {"Location: /x"}, "stay"}}) {
    server_.AnswerWith("/", leadsNowhere);
    EXPECT_EQ(Follow("/"), "stay");
  }
}

TEST_F(CurlTransferTest, FollowsFiveRedirectsAndNoSixth) {
  const auto redirect = [&](const std::string& from, const std::string& to) {
    server_.AnswerWith(from, {.status = 302, .headers = {"Location: " + to}});
  };
  for (int hop = 1; hop <= 6; ++hop) {
    redirect("/" + std::to_string(hop), "/" + std::to_string(hop - 1));
  }
  redirect("/file", "file:///etc/passwd");
  redirect("/bad", "http://h:x/");
  server_.Answer("/0", "arrived");
  EXPECT_EQ(Follow("/5"), "arrived");
  EXPECT_EQ(Failure({server_.Url("/6"), 10, true}), "HOST redirected once too often");
  EXPECT_THAT(server_.Requests(), testing::SizeIs(6 + 6));
  for (const char* path : {"/file", "/bad"}) {
    EXPECT_EQ(Failure({server_.Url(path), 10, true}),
              "HOST redirected to an address that cannot be fetched");
  }
}

TEST_F(CurlTransferTest, UsesAProxyForAddressesThatNeedNoRawTarget) {
  ScriptedServer proxy;
  proxy.Answer("http://", "by proxy");
  server_.Answer("/", "directly");
  const char* const noProxy = std::getenv("no_proxy");  // as the tests are run
  const std::string before = noProxy != nullptr ? noProxy : "";
  ::setenv("no_proxy", "", 1);
  ::setenv("http_proxy", proxy.Url().c_str(), 1);
  EXPECT_EQ(Get(server_.Url("/plain?a=b")), "by proxy");
  EXPECT_EQ(Get(server_.Url("/raw#target")), "directly");
  EXPECT_THAT(proxy.Requests(), ElementsAre("GET " + server_.Url("/plain?a=b") + " HTTP/1.1"));
  EXPECT_THAT(server_.Requests(), ElementsAre("GET /raw#target HTTP/1.1"));
  ::unsetenv("http_proxy");
  ::setenv("no_proxy", before.c_str(), 1);
}

}  // namespace
}  // namespace tallyo
