#include "platform/request_address.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "platform/http_transfer.h"
#include "platform/transport_failure.h"

namespace tallyo {
namespace {

std::string WhyRefused(const std::string& address) {
  try {
    CheckAddress(address);
    return "accepted";
  } catch (const TransportFailure& failure) {
    EXPECT_EQ(failure.Why(), TransportFailure::Reason::BadAddress) << address;
    return failure.what();
  }
}

TEST(CheckAddress, RefusesWhatCannotBeSentAndSaysWhy) {
  const std::string control = "the address holds a control character";
  const std::string scheme = "the address does not begin with http:// or https://";
  const std::string host = "the address has no host";
  const std::string port = "the port in the address is not a number up to 65535";
  const std::string unreadable = "the host in the address cannot be read";
  const struct {
    std::string address;
    std::string why;
  } cases[] = {
      {"", scheme},
      {"127.0.0.1/x", scheme},
      {"ftp://h/x", scheme},
      {"file:///etc/passwd", scheme},
      {"http:h", scheme},
      {"http:/h/x", scheme},
      {" http://h/", scheme},
      {"http://", host},
      {"http:///x", host},
      {"http://?x", host},
      {"http://:80/", host},
      {"http://user@/", host},
      {"http://h:x/", port},
      {"http://h:65536/", port},
      {"http://h:-1/", port},
      {"http://a b/", unreadable},
      {"http://[::1/", unreadable},
      {"http://a%0Db/", unreadable},
      {"http://h/a\nb", control},
      {"http://h/a\x7F", control},
      {"http://h/a\x1F", control},
      {std::string("http://h/\0", 10), control},
      {"http://h\t/", control},
  };
  for (const auto& [address, why] : cases) EXPECT_EQ(WhyRefused(address), why) << address;
}

TEST(CheckAddress, AcceptsEverythingElse) {
  for (const char* address :
       {"http://h", "HTTP://h/", "hTTps://h?x", "http://h:8080/a b#c/../d", "http://[::1]:80/",
        "http://user:word@h/", "http://h/\x80\xFF", "http://h:/x", "http://h/|<>\"{}[]^`\\"}) {
    EXPECT_EQ(WhyRefused(address), "accepted") << address;
  }
}

TEST(RequestAddress, TakesARawTargetOnlyWhereLibcurlWouldChangeTheAddress) {
  const struct {
    const char* address;
    std::optional<std::string> rawTarget;
  } cases[] = {
      {"http://h", {}},
      {"http://h?x=1", {}},
      {"HTTP://h:8080/a/b.c?d=e&f=http://g/h", {}},
      {"http://h/a?b?c", {}},
      {"http://h/a..b/...", {}},
      {"http://h/%20%2e%zz", {}},
      {"http://h/?link=http://a/../b", {}},
      {"http://h/a b", "/a b"},
      {"http://h?a b", "/?a b"},
      {"http://h#a", "/#a"},
      {"http://h/a#b", "/a#b"},
      {"http://h/a/../b/./c", "/a/../b/./c"},
      {"http://h/..", "/.."},
      {"http://h/caf\xC3\xA9", "/caf\xC3\xA9"},
      {"http://h/?x=\xFF", "/?x=\xFF"},
  };
  for (const auto& [address, rawTarget] : cases) {
    const RequestAddress parsed(address);
    EXPECT_EQ(parsed.RawTarget(), rawTarget) << address;
    EXPECT_EQ(parsed.Url(), rawTarget ? "http://h/" : address);
  }
}

TEST(RequestAddress, NamesHostAndPortWithoutAPassword) {
  EXPECT_EQ(RequestAddress("http://user:word@h:81/x").Host(), "h:81");
  EXPECT_EQ(RequestAddress("https://h/x@y:5").Host(), "h");
  EXPECT_EQ(RequestAddress("http://[::1]:80").Host(), "[::1]:80");
}

TEST(RequestAddress, ReadsALocationAgainstTheAddress) {
  const struct {
    const char* address;
    const char* location;
    const char* next;
  } cases[] = {
      {"http://h/a/b?c", "d", "http://h/a/d"},
      {"http://h/a/b?c=/x/y", "d", "http://h/a/d"},
      {"http://h:81/a/b", "/d?e", "http://h:81/d?e"},
      {"http://h/a/b", "../d#e", "http://h/d"},
      {"http://h/a", "?d", "http://h/a?d"},
      {"http://h/a", "//g/d", "http://g/d"},
      {"http://h/a", "HTTPS://g/d", "https://g/d"},
      {"https://h/a", "/d", "https://h/d"},
      {"https://h/a", "https://g/", "https://g/"},
      {"http://h/a", "/b c?d e", "http://h/b%20c?d+e"},
      {"http://h/a", "http://g/b c", "http://g/b%20c"},
      {"http://h/a", "/\xFF", "http://h/%ff"},
      {"http://h/my dir/x?a=b c#d", "e", "http://h/my%20dir/e"},
      {"http://user:word@h/a", "/b", "http://user:word@h/b"},
      {"http://user:word@h/a", "http://g/b", "http://g/b"},
  };
  for (const auto& [address, location, next] : cases) {
    const RequestAddress redirected = RequestAddress(address).Redirected(location);
    EXPECT_EQ(redirected.Url(), next) << address << " " << location;
    EXPECT_EQ(redirected.RawTarget(), std::nullopt) << location;
  }
}

TEST(RequestAddress, FailsAtALocationThatMayNotBeFollowed) {
  const struct {
    const char* address;
    const char* location;
    const char* why;
  } cases[] = {
      {"https://h/a", "http://h/a", "h redirected to an address that is not secure"},
      {"http://h/a", "file:///etc/passwd", "h redirected to an address that cannot be fetched"},
      {"http://h/a", "ftp://h/", "h redirected to an address that cannot be fetched"},
      {"http://h/a", "javascript:x", "h redirected to an address that cannot be fetched"},
      {"http://h/a", "http://", "h redirected to an address that cannot be fetched"},
      {"http://h/a", "http://h:x/", "h redirected to an address that cannot be fetched"},
      {"http://h/a", "/\x01", "h redirected to an address that cannot be fetched"},
  };
  for (const auto& [address, location, why] : cases) {
    try {
      const RequestAddress next = RequestAddress(address).Redirected(location);
      ADD_FAILURE() << location << " led to " << next.Url();
    } catch (const TransportFailure& failure) {
      EXPECT_EQ(failure.Why(), TransportFailure::Reason::Failed);
      EXPECT_STREQ(failure.what(), why) << location;
    }
  }
}

}  // namespace
}  // namespace tallyo
