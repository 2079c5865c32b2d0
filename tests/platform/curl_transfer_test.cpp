#include "platform/curl_transfer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
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

TEST_F(CurlTransferTest, ReturnsTheBodyOfAWholeAnswerAsItWasSent) {
  const std::string binary("a\r\n\0b", 5);
  server_.AnswerRaw("/", "HTTP/1.1 500 No\r\nContent-Length: 5\r\n\r\n" + binary, Then::Reset);
  EXPECT_EQ(Get(server_.Url()), binary);
  const std::string most(kMostBodyBytes, 'x');
  server_.AnswerRaw("/most", "HTTP/1.1 200 OK\r\n\r\n" + most, Then::Close);
  EXPECT_EQ(Get(server_.Url("/most")), most);
}

TEST_F(CurlTransferTest, SaysWhyAnAnswerIsNotWholeOrNone) {
  const std::string ok = "HTTP/1.1 200 OK\r\n";
  const Table<std::string, Then, std::string> cases = {
      {"", Then::Close, "HOST closed the connection without an answer"},
      {"", Then::Reset, "the connection to HOST was lost"},
      {ok + "Content-Length: 5\r\n\r\nabcd", Then::Close, "the answer of HOST was cut short"},
      {ok + "Content-Length: 5\r\n\r\nabcd", Then::Reset, "the connection to HOST was lost"},
      {"\x1B[31mnot\x07 HTTP\r\n", Then::Close, "the answer of HOST is not HTTP"},
      {ok + "X: " + std::string(90000, 'x') + "\r\nY: " + std::string(90000, 'y') +
           "\r\nZ: " + std::string(90000, 'z') + "\r\n\r\n",
       Then::Hold, "the header of the answer of HOST is larger than 256 KiB"},
      {ok + "Content-Length: " + std::to_string(kMostBodyBytes + 1) + "\r\n\r\n", Then::Hold,
       "the answer of HOST is larger than 16 MiB"},
      {ok + "\r\n" + std::string(kMostBodyBytes + 1, 'x'), Then::Close,
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

TEST_F(CurlTransferTest, GivesUpAfterTheTimeOut) {
  server_.Hold("/held");
  server_.AnswerWith("/hop", {.status = 302, .headers = {"Location: /held"}});
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

TEST_F(CurlTransferTest, FollowsFiveRedirectsWhereItIsToldTo) {
  server_.Answer("/", "arrived");
  for (const int status : {301, 302, 303, 307, 308}) {
    server_.AnswerWith("/from here", {status, {"Location: a b?c d#e"}, "moved"});
    EXPECT_EQ(Follow("/from here"), "arrived") << status;
    EXPECT_EQ(server_.Requests().back(), "GET /a%20b?c+d HTTP/1.1");
  }
  for (const Reply& leadsNowhere : {Reply{302, {}, "stay"}, Reply{302, {"Location:"}, "stay"},
                                    Reply{200, {"Location: /x"}, "stay"}}) {
    server_.AnswerWith("/", leadsNowhere);
    EXPECT_EQ(Follow("/"), "stay");
  }
  const std::size_t before = server_.Requests().size();
  server_.AnswerWith("/loop", {.status = 302, .headers = {"Location: /loop"}});
  EXPECT_EQ(Failure({server_.Url("/loop"), 10, true}), "HOST redirected once too often");
  EXPECT_EQ(server_.Requests().size(), before + 6);
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
