#pragma once

#include <cstdint>

#include "form/main_form.h"
#include "form/shared_state.h"

namespace tallyo {

// Shows one screen at a time and fits the window to it.
class Screens {
 public:
  Screens(MainForm& form, SharedState& state) : form_(form), state_(state) {}

  // Shows screen n and hides all others and the selectors of the daily status. Throws RuntimeError
  // for a number outside 0 to 8, before any change.
  void ShowScreen(std::int16_t n);

  // Sizes the window to the current screen and its margins. A minimized window is left alone.
  void FormResize();

 private:
  MainForm& form_;
  SharedState& state_;
};

}  // namespace tallyo
