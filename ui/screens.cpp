#include "ui/screens.h"

#include "text/runtime_error.h"

namespace tallyo {

void Screens::ShowScreen(std::int16_t n) {
  if (n < 0 || static_cast<std::size_t>(n) >= screen::kCount) {
    throw RuntimeError("no such screen");
  }
  const auto shown = static_cast<std::size_t>(n);
  for (std::size_t i = 0; i < screen::kCount; ++i) {
    if (i != shown) {
      form_.Picture1[i].SetVisible(false);
    }
  }
  Panel& panel = form_.Picture1[shown];
  panel.SetVisible(true);
  panel.Put({180, 240, panel.Where().width, panel.Where().height});
  form_.Combo2.SetVisible(false);
  form_.Combo3.SetVisible(false);
  form_.Label5[2].SetVisible(false);
  state_.CurrentScreen = n;
}

void Screens::FormResize() {
  if (form_.Frame.State() == WindowState::Minimized) {
    return;
  }
  const Place& panel = form_.Picture1[static_cast<std::size_t>(state_.CurrentScreen)].Where();
  const Place& frame = form_.Frame.Where();
  form_.Frame.Put({frame.left, frame.top, panel.width + 600, panel.height + panel.top + 1200});
}

}  // namespace tallyo
