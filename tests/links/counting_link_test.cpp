#include "links/counting_link.h"

#include <gtest/gtest.h>

#include <string>

namespace tallyo {
namespace {

TEST(CountingLink, JoinsAccountAndReferenceAsTheyStand) {
  const std::string emoji = "\xF0\x9F\x98\x80";
  const struct {
    std::string account;
    std::string reference;
    std::string script;
  } cases[] = {
      {"acme", "setup.exe", "tallyo.cgi?acc=acme&flnk=setup.exe"},
      {"acme", "", "tallyo.cgi?acc=acme&flnk="},
      {"", "", "tallyo.cgi?acc=&flnk="},
      {"a b", "<b>&x=1#%20\"", "tallyo.cgi?acc=a b&flnk=<b>&x=1#%20\""},
      {emoji, "\x01\xE9", "tallyo.cgi?acc=" + emoji + "&flnk=\x01\xE9"},
      {"acme", std::string(4000, 'x'), "tallyo.cgi?acc=acme&flnk=" + std::string(4000, 'x')},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(CountingScript(c.account, c.reference), c.script);
  }
}

TEST(CountingLink, StandsUnderTitleAndVersion) {
  EXPECT_EQ(CountingLinkText("http://s/tallyo.cgi?acc=acme&flnk=a"),
            "Tallyo --  v.1.1\r\n\r\nhttp://s/tallyo.cgi?acc=acme&flnk=a");
  EXPECT_EQ(CountingLinkText(""), "Tallyo --  v.1.1\r\n\r\n");
}

}  // namespace
}  // namespace tallyo
