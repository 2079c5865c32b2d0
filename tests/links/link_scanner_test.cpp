#include "links/link_scanner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace tallyo {
namespace {

using testing::ElementsAre;
using Texts = std::vector<std::string>;

constexpr const char* kBase = "http://files/";

std::string Repeated(const std::string& part, std::size_t count) {
  std::string text;
  text.reserve(part.size() * count);
  for (std::size_t i = 0; i < count; ++i) {
    text += part;
  }
  return text;
}

std::size_t Bytes(const Texts& links) {
  std::size_t bytes = 0;
  for (const std::string& link : links) {
    bytes += link.size();
  }
  return bytes;
}

// The same rules step by step, consuming the page from its front.
FoundLinks ScanSlowly(std::string page, const std::string& base) {
  FoundLinks found;
  for (;;) {
    const std::size_t anchor = page.find("<A HREF=");
    if (anchor == std::string::npos) {
      return found;
    }
    page.erase(0, anchor + 8);
    page.erase(0, 1);
    const std::size_t end = page.find('>');
    if (end == std::string::npos) {
      found.complete = false;
      return found;
    }
    std::string target = end < 2 ? "" : page.substr(0, end - 1);
    while (target.find("../") != std::string::npos) {
      target.erase(0, target.find("../") + 3);
    }
    found.links.push_back(target.find("://") == std::string::npos ? base + target : target);
  }
}

TEST(LinkScanner, TakesThePlaceOfThePageFromItsAddress) {
  const struct {
    const char* address;
    const char* base;
  } cases[] = {{"http://files/pub/index.html", "http://files/"},
               {"http://files", "http://files/"},
               {"http://files/", "http://files/"},
               {"http://files:8080/a", "http://files:8080/"},
               {"http:///a", "http:///"},
               {"http://files?q=/x", "http://files?q=/"},
               {"files/pub/index.html", "files/"},
               {"x/?u=http://files/a", "x/?u=http://files/"},
               {"//files/a", "//files/"},  // the search begins at the third character
               {"/", "//"},
               {"", "/"}};
  for (const auto& c : cases) {
    EXPECT_EQ(PageBase(c.address), c.base) << c.address;
  }
}

TEST(LinkScanner, ReadsAnchorsAsTheyAreWritten) {
  const struct {
    const char* name;
    const char* page;
    Texts links;
    bool complete = true;
  } cases[] = {
      {"nothing", "", {}},
      {"whole", R"(<A HREF="http://x/a.zip">)", {"http://x/a.zip"}},
      {"relative", R"(text <A HREF="b.zip">b</A> text)", {"http://files/b.zip"}},
      {"single quotes", "<A HREF='b.zip'>", {"http://files/b.zip"}},
      {"no quotes", "<A HREF=b.zip>", {"http://files/.zi"}},
      {"target", R"(<A HREF="c.zip" TARGET="_blank">)", {R"(http://files/c.zip" TARGET="_blank)"}},
      {"lower case", R"(<a href="d.zip"><A href="d.zip"><A  HREF="d.zip">)", {}},
      {"parents", R"(<A HREF="../../img/a.gif">)", {"http://files/img/a.gif"}},
      {"parents behind",
       R"(<A HREF="img/../a.gif"><A HREF=".../a">)",
       {"http://files/a.gif", "http://files/a"}},
      {"parents of a whole one", R"(<A HREF="http://x/../a.zip">)", {"http://files/a.zip"}},
      {"root", R"(<A HREF="/pub/a.zip">)", {"http://files//pub/a.zip"}},
      {"scheme inside", R"(<A HREF="go?ftp://x">)", {"go?ftp://x"}},
      {"duplicates",
       R"(<A HREF="b"><A HREF="a"><A HREF="b">)",
       {"http://files/b", "http://files/a", "http://files/b"}},
      {"nested", R"(<A HREF="a<A HREF="b">)", {R"(http://files/a<A HREF="b)", "http://files/b"}},
      {"quotes only", R"(<A HREF="">)", {"http://files/"}},
      {"one character", "<A HREF=x>", {"http://files/"}},
      {"two characters", "<A HREF=xy>", {"http://files/"}},
      {"its end taken for a quote", "<A HREF=></A>", {"http://files/</"}},
      {"its end taken, no other", R"(<A HREF="a"><A HREF=>)", {"http://files/a"}, false},
      {"at the very end", R"(<A HREF="a"><A HREF=)", {"http://files/a"}, false},
      {"without end", R"(<A HREF="a"><A HREF="b" text)", {"http://files/a"}, false},
      {"markup and line ends",
       "<A HREF=\"<b>\"><A HREF=\"a\r\nb\"\n>",
       {"http://files/<", "http://files/a\r\nb\""}},
      {"foreign bytes",
       "<A HREF=\"\xF0\x9F\x98\x80\xE9\x01\x7F.zip\">",
       {"http://files/\xF0\x9F\x98\x80\xE9\x01\x7F.zip"}},
  };
  for (const auto& c : cases) {
    const FoundLinks found = ScanLinks(c.page, kBase);
    EXPECT_EQ(found.links, c.links) << c.name;
    EXPECT_EQ(found.complete, c.complete) << c.name;
  }
  EXPECT_THAT(ScanLinks(std::string_view("\0<A HREF=\"a\0b\">", 15), kBase).links,
              ElementsAre(std::string("http://files/a\0b", 16)));
}

TEST(LinkScanner, AgreesWithASlowReadingOfRandomPages) {
  const Texts parts = {"<A HREF=", "<A HREF=\"", "\">", ">", "\"",  "../", "..", "/",
                       "://",      ":",          "a",   " ", "<A ", "<a ", "="};
  std::mt19937 random(20261122);
  for (int i = 0; i < 5000; ++i) {
    std::string page;
    for (std::size_t left = random() % 24; left > 0; --left) {
      page += parts[random() % parts.size()];
    }
    const FoundLinks found = ScanLinks(page, kBase);
    const FoundLinks expected = ScanSlowly(page, kBase);
    ASSERT_EQ(found.links, expected.links) << page;
    ASSERT_EQ(found.complete, expected.complete) << page;
  }
}

TEST(LinkScanner, KeepsWhatHostilePagesHoldInBounds) {
  constexpr std::size_t kPageBytes = 10'000'000;
  const auto filled = [](const std::string& part) {
    return Repeated(part, kPageBytes / part.size());
  };
  const struct {
    const char* name;
    std::string page;
    std::string base = kBase;
  } cases[] = {
      {"anchors in one tag", filled("<A HREF=\"x\" ") + ">"},
      {"bare anchors without an end", filled("<A HREF=")},
      {"bare anchors in one tag", filled("<A HREF=") + ">"},
      {"anchors and parents in one tag", filled("<A HREF=\"../") + ">"},
      {"anchors and schemes in one tag", filled("<A HREF=\"://") + ">"},
      {"a long base", filled("<A HREF=\"x\">"), "http://" + std::string(4000, 'h') + "/"},
  };
  for (const auto& c : cases) {
    EXPECT_LE(Bytes(ScanLinks(c.page, c.base).links), kMostLinkBytes) << c.name;
  }
  EXPECT_EQ(kMostLinkBytes, 64U * 1024 * 1024);
  EXPECT_THAT(ScanLinks("<A HREF=\"" + filled("../") + "x\">", kBase).links,
              ElementsAre("http://files/x"));
  EXPECT_EQ(ScanLinks(filled("<A HREF=\"x\">"), kBase).links.size(), kPageBytes / 12);
}

}  // namespace
}  // namespace tallyo
