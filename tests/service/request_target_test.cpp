#include "service/request_target.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tallyo::service {
namespace {

// The request in a form that a table can hold: its kind and its texts, "|" between them.
std::string Described(const Request& request) {
  struct Describe {
    static std::string Joined(std::string kind, const std::vector<std::string_view>& texts) {
      for (const auto text : texts) kind += "|" + std::string(text);
      return kind;
    }
    std::string operator()(const FollowLink& r) {
      return Joined("follow", {r.account, r.reference});
    }
    std::string operator()(const ReadAccount& r) { return Joined("read", {r.account}); }
    std::string operator()(const ShowCounts& r) { return Joined("show", {r.account}); }
    std::string operator()(const AddLink& r) {
      return Joined("add", {r.account, r.reference, r.url});
    }
    std::string operator()(const RemoveLink& r) { return Joined("del", {r.account, r.reference}); }
    std::string operator()(const UnknownAction&) { return "unknown action"; }
    std::string operator()(const ReadPage& r) {
      return "page " + std::to_string(static_cast<int>(r.page));
    }
    std::string operator()(const UnknownPath&) { return "nothing"; }
  };
  return std::visit(Describe(), request);
}

struct Case {
  const char* target;
  const char* request;
};

void ExpectAll(const std::vector<Case>& cases) {
  for (const Case& c : cases) EXPECT_EQ(Described(ParseTarget(c.target)), c.request) << c.target;
}

TEST(RequestTarget, TakesTheValuesOfAnAdditionRaw) {
  const std::string script = "/cgi-bin/Tallyo/devstats.cgi?account=";
  const auto parsed = [&](const std::string& rest) {
    return Described(ParseTarget(script + rest));
  };
  EXPECT_EQ(parsed("acmef.txt&action=add&fryname=setup.exe&link=http://files/setup.exe"),
            "add|acme|setup.exe|http://files/setup.exe");
  EXPECT_EQ(parsed("a bf.txt&action=add&fryname=R&D %20 #1&link=http://x/?a=1&link=2&fryname=3"),
            "add|a b|R&D %20 #1|http://x/?a=1&link=2&fryname=3");
  EXPECT_EQ(parsed("a.txtf.txt&action=add&fryname=x&fryname=y&link="), "add|a.txt|x&fryname=y|");
  EXPECT_EQ(parsed("acmef.txt&action=add&link=http://x&fryname=r"), "add|acme||");
  EXPECT_EQ(parsed("acmef.txt&action=add&fryname=r"), "add|acme||");
  EXPECT_EQ(parsed("acme.txt&action=add&fryname=r&link=http://x"), "add||r|http://x");
}

TEST(RequestTarget, KnowsTheOtherActions) {
  ExpectAll({
      {"/cgi-bin/Tallyo/devstats.cgi?account=acme.txt&action=show", "show|acme"},
      {"/cgi-bin/Tallyo/devstats.cgi?account=a&b=cf.txt&action=show", "show|a&b=cf"},
      {"/cgi-bin/Tallyo/devstats.cgi?account=acme&action=show", "show|"},
      {"/cgi-bin/Tallyo/devstats.cgi?account=acmef.txt&action=del&fryname=r&link=x", "del|acme|r"},
      {"/cgi-bin/Tallyo/devstats.cgi?account=acme.txt&action=Show", "unknown action"},
      {"/cgi-bin/Tallyo/devstats.cgi?account=acme.txt", "unknown action"},
      {"/cgi-bin/Tallyo/devstats.cgi?action=show&account=acme.txt", "unknown action"},
      {"/cgi-bin/Tallyo/devstats.cgi", "unknown action"},
  });
}

TEST(RequestTarget, ReadsTheAddressesOfVisitorsAndClients) {
  ExpectAll({
      {"/cgi-bin/Tallyo/tallyo.cgi?acc=a&flnk=r&flnk=s", "follow|a|r&flnk=s"},
      {"/cgi-bin/Tallyo/tallyo.cgi?acc=my site&flnk=a b ", "follow|my site|a b "},
      {"/cgi-bin/Tallyo/tallyo.cgi?acc=a&flnk=", "follow|a|"},
      {"/cgi-bin/Tallyo/tallyo.cgi?flnk=r&acc=a", "nothing"},
      {"/cgi-bin/Tallyo/tallyo.cgi", "nothing"},
      {"/Tallyo/accounts/my site.txt", "read|my site"},
      {"/Tallyo/accounts/a.txt.txt", "read|a.txt"},
      {"/Tallyo/accounts/a", "nothing"},
      {"http://host:8080/Tallyo/accounts/a.txt", "read|a"},
      {"/", "page 0"},
      {"HTTP://host", "page 0"},
      {"/Tallyo/upgradeinfo.html", "page 3"},
      {"/Tallyo/../Tallyo/support.html", "nothing"},
      {"/%54allyo/support.html", "nothing"},
      {"", "nothing"},
  });
}

}  // namespace
}  // namespace tallyo::service
