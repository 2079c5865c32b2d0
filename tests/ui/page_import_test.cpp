#include "ui/page_import.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/monitored_program.h"
#include "tests/support/table.h"

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
      Form().Text1[field::kLinkPath].SetText("http://elsewhere/");  // too late to matter
      web.Release();
    }
  };
  const std::string address = web.Url("/pub/index.html");
  Import(address);
  EXPECT_THAT(web.Requests(), ElementsAre("GET /pub/index.html HTTP/1.1"));
  EXPECT_THAT(Found(), ElementsAre("http://x/a.zip", web.Url("/b.zip"), web.Url("/b.zip")));
  EXPECT_EQ(t.P().state.CurrentScreen, screen::kImportLinks);
  EXPECT_EQ(Form().Label2[action::kPending].Caption(), "IMPORT");
  const std::string bytes = std::to_string(address.size() + page.size());
  EXPECT_EQ(t.Setting(names::kBytesTransTotal), bytes);
  EXPECT_EQ(t.Detail(detail::kBytesSession), bytes + " Bytes");
  EXPECT_THAT(t.server.Requests(), IsEmpty()) << "the service is not asked";
  EXPECT_THAT(t.Boxes().Texts(), IsEmpty());
}

TEST_F(PageImportTest, ListsWhatComesAndTurnsThePointerBackWhereTheScanComesToItsEnd) {
  web.Answer("/open", "<A HREF=\"a\"><A HREF=\"b");
  web.Answer("/two", "<A HREF=\"a\"><A HREF=\"b\">");
  web.AnswerRaw("/cut", "", test::Then::Close);
  const test::Table<std::string, std::size_t, Pointer, std::size_t> cases = {
      {web.Url("/open"), 1, Pointer::Hourglass, 22},
      {web.Url("/two"), 2, Pointer::Normal, 24},
      {web.Url("/cut"), 0, Pointer::Normal, 0},
      {t.server.Url("/pa\nge"), 0, Pointer::Normal, 0},
      {"ftp://files/http", 0, Pointer::Normal, 0}};
  std::size_t total = 0;
  for (const auto& [address, links, pointer, bytes] : cases) {  // without a RESET between them
    Form().List1.AddLine("of before");
    Import(address);
    EXPECT_EQ(Found().size(), links) << address;
    EXPECT_EQ(Form().Frame.MousePointer(), pointer) << address;
    EXPECT_EQ(t.P().state.CurrentScreen, screen::kImportLinks);
    total += address.size() + bytes;
    EXPECT_EQ(t.Setting(names::kBytesTransTotal), std::to_string(total));
  }
  EXPECT_EQ(t.server.Connections(), 0);
  EXPECT_THAT(t.Boxes().Texts(), IsEmpty());
}

}  // namespace
}  // namespace tallyo
