#include "account/saved_data.h"

#include <string>

#include "links/stored_records.h"
#include "settings/names.h"
#include "settings/value_text.h"
#include "text/runtime_error.h"

namespace tallyo {

void SavedData::ConfirmMisconfigurationReset(Confirm confirm) {
  if (confirm == Confirm::Ask &&
      boxes_.Show({.text = "A missconfiguration was found. Press Yes to reset the program. Warning "
                           "This will remove all saved data",
                   .title = "",
                   .icon = BoxIcon::Critical,
                   .buttons = BoxButtons::YesNo}) != BoxAnswer::Yes) {
    return;
  }
  ResetSavedData(form_.Combo1.Count());
  form_.Combo1.Clear();
  form_.ListView1.ClearRows();
  form_.Combo2.Clear();
  state_.LastCheckTime = 0;
  state_.NextLinkIndex = 0;
  if (OnReset) {
    OnReset();
  }
}

void SavedData::ResetSavedData(int count) {
  store_.AsOneChange([&] {
    for (int number = 1; number <= count; ++number) {
      store_.DeleteKey(Hive::LocalMachine, RecordKey(number));
    }
    store_.DeleteKey(Hive::LocalMachine, names::MonitorFilesKey);
    // A value name and no path: the time of the last check outlives a reset.
    store_.DeleteValue(Hive::LocalMachine, "",
                       std::string(names::SettingsKey) + "\\" + std::string(names::kPrevCheck));
    SetSettingValue(store_, Hive::LocalMachine, names::SettingsKey, names::kAccOpen, "");
  });
  try {
    // What a killed session kept would bring the counters back.
    if (files_.Exists(state_.RecoveryFile())) {
      files_.Delete(state_.RecoveryFile());
    }
    files_.Delete(state_.SnapshotFile());
  } catch (const RuntimeError&) {
    return;
  }
  state_.LastCheckTime = 0;
}

}  // namespace tallyo
