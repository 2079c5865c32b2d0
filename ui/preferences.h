#pragma once

#include <cstddef>
#include <string>

#include "form/main_form.h"
#include "form/shared_state.h"
#include "platform/shell.h"
#include "settings/settings.h"

namespace tallyo {

// The preferences screen: every change is stored at once.
class Preferences {
 public:
  // Connects itself to the screen's controls, which must outlive it.
  Preferences(MainForm& form, const SharedState& state, Settings& settings, Shell& shell);

  // Puts the stored preferences into the controls.
  void Restore();

 private:
  void CheckClicked(std::size_t index);
  void StoreAutoload();
  void RestoreStartPosition();
  void ShowInAllScreens(std::size_t index, Label& caption, Label& figure, std::string_view name);
  void IntervalLeft();
  void DefaultUrlLeft();

  MainForm& form_;
  const SharedState& state_;
  Settings& settings_;
  Shell& shell_;
};

}  // namespace tallyo
