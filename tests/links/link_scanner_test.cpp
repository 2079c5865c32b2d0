#include "links/link_scanner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/table.h"

namespace tallyo {
namespace {

using test::Table;
using testing::ElementsAre;
using Texts = std::vector<std::string>;

constexpr const char* kBase = "http://files/";

TEST(LinkScanner, TakesThePlaceOfThePageFromItsAddress) {
  const Table<const char*, const char*> cases = {
      {"http://files/pub/index.html", "http://files/"},
      {"http://files", "http://files/"},
      {"http:///a", "http:///"},
      {"http://files?q=/x", "http://files?q=/"},
      {"files/pub/index.html", "files/"},
      {"x/?u=http://files/a", "x/?u=http://files/"},
      {"//files/a", "//files/"},  // the search begins at the third character
      {"", "/"}};
  for (const auto& [address, base] : cases) {
    EXPECT_EQ(PageBase(address), base) << address;
  }
}

TEST(LinkScanner, ReadsAnchorsAsTheyAreWritten) {
  const Table<std::string, Texts> cases = {
      {"", {}},
      {R"(<A HREF="http://x/a.zip">)", {"http://x/a.zip"}},
      {R"(text <A HREF="b.zip">b</A> text)", {"http://files/b.zip"}},
      {"<A HREF=b.zip>", {"http://files/.zi"}},
      {R"(<A HREF="c.zip" TARGET="_blank">)", {R"(http://files/c.zip" TARGET="_blank)"}},
      {R"(<a href="d.zip"><A href="d.zip"><A  HREF="d.zip">)", {}},
      {R"(<A HREF="../../img/a.gif"><A HREF="img/../a.gif">)",
       {"http://files/img/a.gif", "http://files/a.gif"}},
      {R"(<A HREF="http://x/../a.zip">)", {"http://files/a.zip"}},
      {R"(<A HREF="/pub/a.zip">)", {"http://files//pub/a.zip"}},
      {R"(<A HREF="go?ftp://x">)", {"go?ftp://x"}},
      {R"(<A HREF="a<A HREF="b">)", {R"(http://files/a<A HREF="b)", "http://files/b"}},
      {R"(<A HREF=""><A HREF=x><A HREF=xy>)", {"http://files/", "http://files/", "http://files/"}},
      {"<A HREF=></A>", {"http://files/</"}},  // its end is taken for a quote
      {"<A HREF=\"a\r\nb\"\n>", {"http://files/a\r\nb\""}},
      {std::string("\0<A HREF=\"a\0\xE9\">", 16), {std::string("http://files/a\0\xE9", 16)}}};
  for (const auto& [page, links] : cases) {
    const FoundLinks found = ScanLinks(page, kBase);
    EXPECT_EQ(found.links, links) << page;
    EXPECT_TRUE(found.complete) << page;
  }
  for (const char* behind : {"<A HREF=>", "<A HREF=", "<A HREF=\"b\" text"}) {
    const FoundLinks found = ScanLinks(std::string("<A HREF=\"a\">") + behind, kBase);
    EXPECT_THAT(found.links, ElementsAre("http://files/a")) << behind;
    EXPECT_FALSE(found.complete) << behind;
  }
}

TEST(LinkScanner, KeepsWhatHostilePagesHoldInBounds) {
  std::string anchors;
  std::string parents;
  while (anchors.size() < 10'000'000) {
    anchors += "<A HREF=\"";
    parents += "../../../";
  }
  const std::string longBase = "http://" + std::string(4000, 'h') + "/";
  for (const std::string& base : {std::string(kBase), longBase}) {
    std::size_t bytes = 0;
    for (const std::string& link : ScanLinks(anchors + ">", base).links) {
      bytes += link.size();
    }
    EXPECT_LE(bytes, 64U * 1024 * 1024);
    EXPECT_GT(bytes, 0U);
  }
  EXPECT_FALSE(ScanLinks(anchors, kBase).complete);
  EXPECT_THAT(ScanLinks("<A HREF=\"" + parents + "x\">", kBase).links,
              ElementsAre("http://files/x"));
}

}  // namespace
}  // namespace tallyo
