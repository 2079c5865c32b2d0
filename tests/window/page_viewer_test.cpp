#include <gtest/gtest.h>

#include <QBuffer>
#include <QImage>
#include <QTextBrowser>
#include <algorithm>
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
  [[nodiscard]] static std::string Nested(const std::string& element, int times) {
    std::string page;
    for (int i = 0; i < times; ++i) {
      page += element;
    }
    return page;
  }
  [[nodiscard]] QSize Pictures() {
    const QUrl name("p.png");
    return test.Find<QTextBrowser>("WB1")
        .document()
        ->resource(QTextDocument::ImageResource, name)
        .value<QImage>()
        .size();
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
  for (const std::string& page : {std::string(300'000, 'x'), Nested("<div>", 300)}) {
    test.server.Answer("/much", page);
    Go(test.server.Url("/much"));
    EXPECT_TRUE(ComesToShow("too intricate"));
  }
  test.server.AnswerWith("/list", {.headers = {"Content-Type: Text/HTML"},
                                   .body = Nested("<p>item", 2000) + "the end"});
  Go(test.server.Url("/list"));
  EXPECT_TRUE(ComesToShow("the end"));
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

TEST_F(PageViewerTest, AsksForThePicturesOfEachPageAnew) {
  QByteArray picture;
  QBuffer buffer(&picture);
  QImage(2, 2, QImage::Format_RGB32).save(&buffer, "PNG");
  test.server.Answer("/a/p.png", picture.toStdString());
  test.server.Answer("/b/p.png", picture.toStdString());
  for (const std::string folder : {"/a/", "/b/"}) {
    test.server.Answer(folder, "<img src=p.png>" + folder);
    Go(test.server.Url(folder));
    EXPECT_TRUE(ComesToShow(folder));
    EXPECT_TRUE(QTest::qWaitFor([&] {
      return std::ranges::count(test.server.Requests(), "GET " + folder + "p.png HTTP/1.1") == 1;
    }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return Pictures() == QSize(2, 2); })) << folder;
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
