#pragma once

#include <string>
#include <vector>

#include "settings/settings_store.h"

namespace tallyo {

// The key that holds record `number` of the monitored links.
[[nodiscard]] std::string RecordKey(int number);

// All records from 01 up to the first number whose value reads as "", in one read of the store.
[[nodiscard]] std::vector<std::string> StoredRecords(SettingsStore& store);

}  // namespace tallyo
