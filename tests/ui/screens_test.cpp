#include "ui/screens.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "text/runtime_error.h"

namespace tallyo {
namespace {

using testing::ElementsAre;

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
  [[nodiscard]] std::vector<int> Shown() const {
    std::vector<int> shown;
    for (std::size_t i = 0; i < form.Picture1.size(); ++i) {
      if (form.Picture1[i].Visible()) {
        shown.push_back(static_cast<int>(i));
      }
    }
    return shown;
  }

  MainForm form;
  SharedState state;
  Screens screens{form, state};
};

TEST_F(ScreensTest, ShowsOneScreenAloneInItsPlace) {
  form.Label5[0].SetVisible(true);
  for (std::int16_t n = 0; n <= 8; ++n) {
    ShowSelectors();
    screens.ShowScreen(n);
    EXPECT_THAT(Shown(), ElementsAre(n));
    EXPECT_EQ(SelectorsShown(), 0) << n;
    EXPECT_EQ(form.Picture1[static_cast<std::size_t>(n)].Where().left, 180);
    EXPECT_EQ(form.Picture1[static_cast<std::size_t>(n)].Where().top, 240);
    EXPECT_EQ(state.CurrentScreen, n);
  }
  EXPECT_TRUE(form.Label5[0].Visible());
}

TEST_F(ScreensTest, RefusesOtherScreensBeforeAnyChange) {
  screens.ShowScreen(3);
  ShowSelectors();
  for (const std::int16_t n : std::initializer_list<std::int16_t>{-32768, -1, 9, 32767}) {
    EXPECT_THROW(screens.ShowScreen(n), RuntimeError) << n;
  }
  EXPECT_THAT(Shown(), ElementsAre(3));
  EXPECT_EQ(SelectorsShown(), 3);
  EXPECT_EQ(state.CurrentScreen, 3);
}

TEST_F(ScreensTest, SizesTheWindowToTheScreenAndItsMargins) {
  for (std::int16_t n = 0; n <= 8; ++n) {
    screens.ShowScreen(n);
    form.Frame.Put({70, 80, 100, 100});  // dragged
    screens.FormResize();
    const Place& panel = form.Picture1[static_cast<std::size_t>(n)].Where();
    EXPECT_EQ(form.Frame.Where(), (Place{70, 80, panel.width + 600, panel.height + 240 + 1200}));
  }
}

TEST_F(ScreensTest, LeavesAMinimizedWindowAlone) {
  screens.ShowScreen(1);
  form.Frame.Put({0, 0, 160, 24});
  form.Frame.SetState(WindowState::Minimized);
  screens.FormResize();
  EXPECT_EQ(form.Frame.Where(), (Place{0, 0, 160, 24}));
}

}  // namespace
}  // namespace tallyo
