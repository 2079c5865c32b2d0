#include "platform/request_address.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "platform/http_transfer.h"
#include "platform/transport_failure.h"
#include "tests/support/table.h"

namespace tallyo {
namespace {

using test::Table;
using Reason = TransportFailure::Reason;

// Why it fails; what it returns where it does not.
template <typename Work>
std::string FailureOf(Reason reason, const Work& work) {
  try {
    return "led to " + work();
  } catch (const TransportFailure& failure) {
    EXPECT_EQ(failure.Why(), reason) << failure.what();
    return failure.what();
  }
}

TEST(CheckAddress, RefusesWhatCannotBeSentAndSaysWhy) {
  const std::string control = "the address holds a control character";
  const std::string scheme = "the address does not begin with http:// or https://";
  const std::string host = "the address has no host";
  const std::string port = "the port in the address is not a number up to 65535";
  const std::string unreadable = "the host in the address cannot be read";
  const Table<std::string, std::string> cases = {{"", scheme},
                                                 {"127.0.0.1/x", scheme},
                                                 {"http:/h/x", scheme},
                                                 {" http://h/", scheme},
                                                 {"http://?x", host},
                                                 {"http://:80/", host},
                                                 {"http://h:x/", port},
                                                 {"http://h:65536/", port},
                                                 {"http://a b/", unreadable},
                                                 {"http://[::1/", unreadable},
                                                 {"http://h/a\nb", control},
                                                 {"http://h/a\x7F", control},
                                                 {std::string("http://h/\0", 10), control}};
  for (const auto& [address, why] : cases) {
    const auto check = [text = address] {
      CheckAddress(text);
      return text;
    };
    EXPECT_EQ(FailureOf(Reason::BadAddress, check), why);
  }
  for (const char* address : {"hTTps://h?x", "http://user:word@h:8080/a b#c/../d",
                              "http://[::1]:80/", "http://h:/x", "http://h/\x80|<>\"{}[]^`\\"}) {
    EXPECT_NO_THROW(CheckAddress(address)) << address;
  }
}

TEST(RequestAddress, TakesARawTargetOnlyWhereLibcurlWouldChangeTheAddress) {
  for (const char* plain :
       {"http://h", "HTTP://h:8080/a/b.c?d=e&f=http://g/../h", "http://h/a..b/..."}) {
    EXPECT_EQ(RequestAddress(plain).RawTarget(), std::nullopt) << plain;
  }
  EXPECT_EQ(RequestAddress("http://h?a b").RawTarget(), "/?a b");
  EXPECT_EQ(RequestAddress("http://h#a").RawTarget(), "/#a");
  EXPECT_EQ(RequestAddress("http://h/caf\xC3\xA9").RawTarget(), "/caf\xC3\xA9");
  EXPECT_EQ(RequestAddress("http://user:word@h:81/x").Host(), "h:81");
  EXPECT_EQ(RequestAddress("https://h/x@y:5").Host(), "h");
}

TEST(RequestAddress, ReadsALocationAgainstTheAddress) {
  const Table<const char*, const char*, const char*> cases = {
      {"http://h:81/a/b?c=/x/y", "../d#e", "http://h:81/d"},
      {"http://h/a", "//g/d", "http://g/d"},
      {"https://h/a", "HTTPS://g/b c?d e\xFF", "https://g/b%20c?d+e%ff"},
      {"http://h/my dir/x?a=b c#d", "e", "http://h/my%20dir/e"},
      {"http://user:word@h/a", "/b", "http://user:word@h/b"},
      {"http://user:word@h/a", "http://g/b", "http://g/b"}};
  for (const auto& [address, location, next] : cases) {
    const RequestAddress redirected = RequestAddress(address).Redirected(location);
    EXPECT_EQ(redirected.Url(), next) << address << " " << location;
    EXPECT_EQ(redirected.RawTarget(), std::nullopt) << location;
  }
  const Table<const char*, const char*, std::string> failing = {
      {"https://h/a", "http://h/a", "is not secure"},
      {"http://h/a", "file:///etc/passwd", "cannot be fetched"},
      {"http://h/a", "http://h:x/", "cannot be fetched"},
      {"http://h/a", "/\x01", "cannot be fetched"}};
  for (const auto& [address, location, why] : failing) {
    const auto follow = [from = address, to = location] {
      return RequestAddress(from).Redirected(to).Url();
    };
    EXPECT_EQ(FailureOf(Reason::Failed, follow), "h redirected to an address that " + why);
  }
}

}  // namespace
}  // namespace tallyo
