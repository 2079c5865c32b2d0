#include "ui/screens.h"

#include <gtest/gtest.h>

#include "text/runtime_error.h"

namespace tallyo {
namespace {

class ScreensTest : public testing::Test {
 protected:
  void ShowSelectors() {
    form.Combo2.SetVisible(true);
    form.Combo3.SetVisible(true);
    form.Label5[2].SetVisible(true);
  }
  [[nodiscard]] int SelectorsShown() const {
    return static_cast<int>(form.Combo2.Visible()) + static_cast<int>(form.Combo3.Visible()) +
           static_cast<int>(form.Label5[2].Visible());
  }

  MainForm form;
  SharedState state;
  Screens screens{form, state};
};

TEST_F(ScreensTest, ShowsOneScreenAloneInItsPlaceAndSizesTheWindowToIt) {
  for (std::int16_t n = 0; n <= 8; ++n) {
    SCOPED_TRACE(n);
    ShowSelectors();
    screens.ShowScreen(n);
    for (std::int16_t i = 0; i <= 8; ++i) {
      EXPECT_EQ(form.Picture1[static_cast<std::size_t>(i)].Visible(), i == n);
    }
    EXPECT_EQ(SelectorsShown(), 0);
    EXPECT_EQ(state.CurrentScreen, n);
    const Place& panel = form.Picture1[static_cast<std::size_t>(n)].Where();
    EXPECT_EQ(panel, (Place{180, 240, panel.width, panel.height}));
    form.Frame.Put({70, 80, 100, 100});  // dragged
    screens.FormResize();
    EXPECT_EQ(form.Frame.Where(), (Place{70, 80, panel.width + 600, panel.height + 240 + 1200}));
  }
  form.Frame.Put({0, 0, 160, 24});
  form.Frame.SetState(WindowState::Minimized);
  screens.FormResize();
  EXPECT_EQ(form.Frame.Where(), (Place{0, 0, 160, 24}));
}

TEST_F(ScreensTest, RefusesOtherScreensBeforeAnyChange) {
  screens.ShowScreen(3);
  ShowSelectors();
  for (const std::int16_t n : std::initializer_list<std::int16_t>{-32768, -1, 9}) {
    EXPECT_THROW(screens.ShowScreen(n), RuntimeError) << n;
  }
  EXPECT_TRUE(form.Picture1[3].Visible());
  EXPECT_EQ(SelectorsShown(), 3);
  EXPECT_EQ(state.CurrentScreen, 3);
}

}  // namespace
}  // namespace tallyo
