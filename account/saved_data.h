#pragma once

#include <functional>

#include "form/main_form.h"
#include "form/shared_state.h"
#include "platform/files.h"
#include "platform/message_boxes.h"
#include "settings/settings_store.h"

namespace tallyo {

enum class Confirm { Ask, Silently };

// Wiping what a damaged configuration leaves. The account, the traffic total, the preferences and
// the daily files are never touched.
class SavedData {
 public:
  SavedData(MainForm& form, SharedState& state, SettingsStore& store, Files& files,
            MessageBoxes& boxes)
      : form_(form), state_(state), store_(store), files_(files), boxes_(boxes) {}

  // Told of every reset of the lists, after it.
  std::function<void()> OnReset;

  // Asks first, where it shall; on any answer but Yes nothing happens. Then resets the saved data
  // of all listed links and empties the lists.
  void ConfirmMisconfigurationReset(Confirm confirm);

  // Deletes the records 01 to `count`, all that is left of the links, the opening date and the
  // counter snapshot. Ends silently at its first error.
  void ResetSavedData(int count);

 private:
  MainForm& form_;
  SharedState& state_;
  SettingsStore& store_;
  Files& files_;
  MessageBoxes& boxes_;
};

}  // namespace tallyo
