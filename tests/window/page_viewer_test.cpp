#include <gtest/gtest.h>

#include <QTextBrowser>
#include <fstream>

#include "tests/window/url_opener.h"
#include "tests/window/window_under_test.h"

namespace tallyo {
namespace {

using test::WindowUnderTest;

class PageViewerTest : public testing::Test {
 protected:
  // With a start page, and a page of the service about support.
  PageViewerTest() {
    std::ofstream(test.installed.Path() / "intro.sht") << "<h1>Start here</h1>";
    test.server.AnswerWith("/Tallyo/support.html",
                           {.headers = {"Content-Type: text/html"},
                            .body = "<p>Ask <b>us</b><script>alert(1)</script></p>"});
    test.Start();
  }
  [[nodiscard]] std::string Page() {
    return test.Find<QTextBrowser>("WB1").toPlainText().toStdString();
  }
  [[nodiscard]] testing::AssertionResult ComesToShow(const std::string& text) {
    if (QTest::qWaitFor([&] { return Page().find(text) != std::string::npos; }, 10000)) {
      return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "shows " << Page();
  }
  void Go(const std::string& address) {
    test.Form().WB1.Navigate(address);
    test.Settle();
  }

  WindowUnderTest test;
};

TEST_F(PageViewerTest, ShowsTheStartPageThatWasInstalledAndPagesOfTheService) {
  EXPECT_EQ(Page(), "Start here");
  EXPECT_FALSE(test.Find("OpenInBrowser").isEnabled());
  test.ClickItem("mnuSupport");
  EXPECT_TRUE(ComesToShow("Ask us"));
  EXPECT_EQ(Page().find("alert"), std::string::npos);
  EXPECT_TRUE(test.Find("OpenInBrowser").isEnabled());
  test.Click("WebBack");
  EXPECT_TRUE(ComesToShow("Start here"));
}

TEST_F(PageViewerTest, ShowsAPlainPageWhereThereIsNothingToShow) {
  const test::Reply loop{.status = 302, .headers = {"Location: /loop"}, .body = "again"};
  test.server.AnswerWith("/old", {.status = 302, .headers = {"Location: /new"}, .body = "moved"});
  test.server.Answer("/new", "new place");
  test.server.AnswerWith("/loop", loop);
  Go(test.server.Url("/old"));
  EXPECT_TRUE(ComesToShow("new place"));
  Go(test.server.Url("/loop"));
  EXPECT_TRUE(ComesToShow("This page cannot be shown"));
  test.server.Hold("/slow");
  Go(test.server.Url("/slow"));
  test.Show(screen::kPreferences);  // nothing waits for a page
  EXPECT_TRUE(test.Find("Picture1_2").isVisible());
  test.server.RefuseConnections();
  for (const std::string& address :
       {test.server.Url("/gone"), std::string("ftp://h/x"), std::string("http://")}) {
    Go("about:blank");
    Go(address);
    EXPECT_TRUE(ComesToShow("This page cannot be shown")) << address;
    EXPECT_TRUE(ComesToShow(address.substr(0, 6))) << address;
  }
}

TEST_F(PageViewerTest, LoadsNoFileFromElsewhere) {
  const test::TempFolder elsewhere;
  const std::string outside = (elsewhere.Path() / "secret.html").string();
  std::ofstream(outside) << "secret";
  std::filesystem::create_symlink(outside, test.folder.Path() / "l.sht");
  for (const std::string& address :
       {outside, "file://" + outside, (test.folder.Path() / "l.sht").string(),
        (test.folder.Path() / ".." / elsewhere.Path().filename() / "secret.html").string()}) {
    Go(address);
    EXPECT_TRUE(ComesToShow("outside Tallyo's own folder")) << address;
  }
}

TEST_F(PageViewerTest, OpensOtherHostsInTheBrowserOfThePerson) {
  test::UrlOpener browser("http");
  test::UrlOpener mail("mailto");
  test.ClickItem("mnuSupport");
  ASSERT_TRUE(ComesToShow("Ask us"));
  test.Click("OpenInBrowser");
  EXPECT_EQ(browser.TakeLast().toString().toStdString(), test.server.Url("/Tallyo/support.html"));
  const auto follow = [this](const char* link) {
    emit test.Find<QTextBrowser>("WB1").anchorClicked(QUrl(link));
    test.Settle();
  };
  const auto requests = test.server.Requests().size();
  follow("http://www.example.com/a?b#c");
  EXPECT_EQ(browser.TakeLast().toString(), "http://www.example.com/a?b#c");
  follow("mailto:us@example.com");
  EXPECT_EQ(mail.TakeLast().path(), "us@example.com");
  for (const char* const link : {"file:///etc/passwd", "javascript:alert(1)", "#top"}) {
    follow(link);
  }
  EXPECT_EQ(Page(), "Ask us");
  EXPECT_EQ(test.server.Requests().size(), requests);
  test.server.Answer("/next", "next page");
  follow("/next");
  EXPECT_TRUE(ComesToShow("next page"));
  EXPECT_TRUE(browser.TakeLast().isEmpty());
}

}  // namespace
}  // namespace tallyo
