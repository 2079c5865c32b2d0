#include "ui/page_import.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/monitored_program.h"

namespace tallyo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

// A started program, and another server that has the pages.
class PageImportTest : public testing::Test {
 protected:
  PageImportTest() {
    t.Start();
    t.P().screens.ShowScreen(screen::kManageLinks);
  }

  MainForm& Form() { return t.Form(); }
  // Chooses the action as the person does.
  void Import(const std::string& address) {
    Form().Text1[field::kLinkPath].SetText(address);
    t.P().Dispatch([this] { Form().Label2[action::kImport].Click(); });
  }
  Texts Found() {
    Texts found;
    for (const CheckList::Line& line : Form().List1.Lines()) {
      EXPECT_FALSE(line.checked);
      found.push_back(line.text);
    }
    return found;
  }

  test::MonitoredProgram t;
  test::ScriptedServer web;
};

TEST_F(PageImportTest, ListsTheLinksOfAPageAndCountsItsTraffic) {
  const std::string page = R"(<A HREF="http://x/a.zip"><A HREF="b.zip"><A HREF="b.zip"></A>)";
  web.Answer("/pub/index.html", page);
  Form().mnuScrnImport.SetEnabled(false);
  web.Hold("/pub");
  t.Event = [&] {
    if (!web.Requests().empty()) {
      EXPECT_EQ(Form().Frame.MousePointer(), Pointer::Hourglass);
      EXPECT_EQ(t.P().state.CurrentScreen, screen::kImportLinks);
      EXPECT_TRUE(Form().mnuScrnImport.Enabled());
      web.Release();
    }
  };
  const std::string address = web.Url("/pub/index.html");
  Import(address);
  EXPECT_THAT(web.Requests(), ElementsAre("GET /pub/index.html HTTP/1.1"));
  EXPECT_THAT(Found(), ElementsAre("http://x/a.zip", web.Url("/b.zip"), web.Url("/b.zip")));
  EXPECT_EQ(Form().Frame.MousePointer(), Pointer::Normal);
  EXPECT_EQ(t.P().state.CurrentScreen, screen::kImportLinks);
  EXPECT_TRUE(Form().mnuScrnImport.Enabled());
  EXPECT_EQ(Form().Label2[action::kPending].Caption(), "IMPORT");
  const std::string bytes = std::to_string(address.size() + page.size());
  EXPECT_EQ(t.Setting(names::kBytesTransTotal), bytes);
  EXPECT_EQ(t.Detail(detail::kBytesSession), bytes + " Bytes");
  EXPECT_THAT(t.server.Requests(), IsEmpty()) << "the service is not asked";
  EXPECT_THAT(t.Boxes().Texts(), IsEmpty());
}

TEST_F(PageImportTest, TurnsThePointerBackWhereTheScanComesToItsEnd) {
  const struct {
    const char* name;
    std::string page;
    std::size_t links;
    Pointer pointer;
  } cases[] = {
      {"no anchors", "<a href=\"a\">", 0, Pointer::Normal},
      {"nothing", "", 0, Pointer::Normal},
      {"anchors", "<A HREF=\"a\">", 1, Pointer::Normal},
      {"an anchor without end", "<A HREF=\"a\"><A HREF=\"b", 1, Pointer::Hourglass},
      {"an anchor at the very end", "<A HREF=", 0, Pointer::Hourglass},
      {"anchors again", "<A HREF=\"a\"><A HREF=\"b\">", 2, Pointer::Normal},
  };
  for (const auto& c : cases) {  // one after the other, without a RESET between them
    web.Answer("/page", c.page);
    Import(web.Url("/page"));
    EXPECT_EQ(Form().Frame.MousePointer(), c.pointer) << c.name;
    EXPECT_EQ(Found().size(), c.links) << c.name;
  }
  EXPECT_EQ(web.Requests().size(), 6U);
}

TEST_F(PageImportTest, ListsNothingOfAPageThatDoesNotCome) {
  web.RefuseConnections();
  const struct {
    std::string address;
    bool reported;
  } cases[] = {{web.Url("/page"), true},
               {t.server.Url("/pa\nge"), false},
               {t.server.Url("/pa\x7Fge"), false},
               {t.server.Url("/page\r\nX: y"), false},
               {"ftp://files/http", false}};
  std::size_t total = 0;
  for (const auto& c : cases) {
    Form().List1.AddLine("of before");
    Form().ListView3.SetValue(detail::kOtherStatus, 1, "unchanged");
    Import(c.address);
    EXPECT_THAT(Found(), IsEmpty()) << c.address;
    EXPECT_EQ(Form().Frame.MousePointer(), Pointer::Normal);
    EXPECT_EQ(t.P().state.CurrentScreen, screen::kImportLinks);
    EXPECT_EQ(t.Detail(detail::kOtherStatus), c.reported ? "Connecting" : "unchanged");
    total += c.address.size();
    EXPECT_EQ(t.Setting(names::kBytesTransTotal), std::to_string(total));
  }
  EXPECT_THAT(t.server.Requests(), IsEmpty());
  EXPECT_EQ(t.server.Connections(), 0);
  EXPECT_THAT(t.Boxes().Texts(), IsEmpty());
}

TEST_F(PageImportTest, FollowsARedirectOnlyAwayFromTheService) {
  const test::Reply redirect{.status = 302, .headers = {"Location: /new"}, .body = "old"};
  for (test::ScriptedServer* server : {&web, &t.server}) {
    server->AnswerWith("/old", redirect);
    server->Answer("/new", "<A HREF=\"a\">");
  }
  Import(web.Url("/old"));
  EXPECT_THAT(web.Requests(), ElementsAre("GET /old HTTP/1.1", "GET /new HTTP/1.1"));
  EXPECT_THAT(Found(), ElementsAre(web.Url("/a")));
  Import(t.server.Url("/old"));
  EXPECT_THAT(t.server.Requests(), ElementsAre("GET /old HTTP/1.1"));
  EXPECT_THAT(Found(), IsEmpty());
  EXPECT_EQ(t.Setting(names::kBytesTransTotal),
            std::to_string(web.Url("/old").size() + 12 + t.server.Url("/old").size() + 3));
}

TEST_F(PageImportTest, IsRefusedWhileAnotherFetchWaits) {
  t.GiveAccount();
  t.server.Hold(test::kAccountPath);
  t.DuringRequest(1, [this] {
    Form().List1.AddLine("kept");
    Import(web.Url("/page"));
    EXPECT_EQ(t.P().state.CurrentScreen, screen::kManageLinks);
    EXPECT_EQ(Form().Frame.MousePointer(), Pointer::Normal);
  });
  Form().Text1[field::kCompany].SetText("Acme");
  Form().Text1[field::kAccount].SetText("mysite");
  t.P().Dispatch([this] { t.P().verification.VerifyAccount(); });
  EXPECT_EQ(t.server.Requests().size(), 1U);
  EXPECT_THAT(web.Requests(), IsEmpty());
  EXPECT_THAT(Found(), ElementsAre("kept"));
}

TEST_F(PageImportTest, TakesTheAddressThatItBeganWith) {
  web.Answer("/page", "<A HREF=\"a\">");
  web.Hold("/page");
  t.Event = [&] {
    if (!web.Requests().empty()) {
      Form().Text1[field::kLinkPath].SetText("http://elsewhere/");
      web.Release();
    }
  };
  Import(web.Url("/page"));
  EXPECT_THAT(Found(), ElementsAre(web.Url("/a")));
  EXPECT_EQ(t.Setting(names::kBytesTransTotal), std::to_string(web.Url("/page").size() + 12));
}

TEST_F(PageImportTest, LeavesForeignTextsAsTheyAre) {
  const std::string target = "&amp;\xF0\x9F\x98\x80\xE9\x01\x1b[31m\x7F" + std::string(4000, 'l');
  web.Answer("/<i>\xF0\x9F\x98\x80", "<A HREF=\"http://x/" + target + "\">");
  Import(web.Url("/<i>\xF0\x9F\x98\x80"));
  EXPECT_THAT(web.Requests(), ElementsAre("GET /<i>\xF0\x9F\x98\x80 HTTP/1.1"));
  EXPECT_THAT(Found(), ElementsAre("http://x/" + target));
}

}  // namespace
}  // namespace tallyo
