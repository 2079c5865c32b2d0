#pragma once

#include <string>

#include "cli/console_options.h"
#include "settings/settings_store.h"

namespace tallyo {

ExitStatus SettingsList(Console& console, const std::string& key);
ExitStatus SettingsGet(Console& console, const std::string& key, const std::string& name);
ExitStatus SettingsSet(Console& console, const std::string& key, const std::string& name,
                       const TypedValue& value);

}  // namespace tallyo
