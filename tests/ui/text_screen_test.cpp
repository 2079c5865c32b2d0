#include "ui/text_screen.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/support/monitored_program.h"

namespace tallyo {
namespace {

class TextScreenTest : public testing::Test {
 protected:
  // What the command leaves in the box; everything that stood there before is replaced.
  std::string TextOf(const MenuItem& command) {
    t.P().screens.ShowScreen(screen::kPreferences);
    t.Form().Text4.SetText("of before");
    std::string text;
    for (int i = 0; i < 2; ++i) {
      t.P().Dispatch([&] { command.Click(); });
      EXPECT_TRUE(i == 0 || text == t.Form().Text4.Text());
      text = t.Form().Text4.Text();
    }
    EXPECT_EQ(t.P().state.CurrentScreen, screen::kText);
    EXPECT_TRUE(t.Form().Picture1[screen::kText].Visible());
    EXPECT_THAT(t.server.Requests(), testing::IsEmpty());
    return text;
  }

  test::MonitoredProgram t;
};

TEST_F(TextScreenTest, ShowsTheCurrentStatusAsText) {
  t.StartWith({{"home page", "1234"}, {"b", ""}});
  t.clock.Set(2026, 11, 16, 14, 5, 9);
  EXPECT_EQ(TextOf(t.Form().mnuExport),
            " -- Tallyo v.1.1    11-16-2026  14:05:09 -- \r\n\r\n  home page:  1234\r\n  b:  \r\n");
  t.Form().ListView1.ClearRows();
  EXPECT_EQ(TextOf(t.Form().mnuExport), " -- Tallyo v.1.1    11-16-2026  14:05:09 -- \r\n\r\n");
}

TEST_F(TextScreenTest, ShowsTheCountingLinkOfTheFields) {
  t.Start();
  const std::string heading = "Tallyo --  v.1.1\r\n\r\n" + t.server.Url() + "cgi-bin/Tallyo/";
  for (const std::string& reference :
       {std::string("setup.exe"), std::string(), std::string(4000, 'r'),
        std::string("<b>&x=1\xF0\x9F\x98\x80\xE9\x01")}) {
    t.Form().Text1[field::kAccount].SetText("acme");
    t.Form().Text1[field::kReference].SetText(reference);
    EXPECT_EQ(TextOf(t.Form().mnuMakeLink), heading + "tallyo.cgi?acc=acme&flnk=" + reference);
  }
}

}  // namespace
}  // namespace tallyo
