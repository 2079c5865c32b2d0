#include "settings/settings.h"

#include "settings/names.h"
#include "settings/value_text.h"

namespace tallyo {

std::string Settings::Get(std::string_view name) const {
  return QuerySettingValue(store_, Hive::LocalMachine, names::SettingsKey, name);
}

void Settings::Set(std::string_view name, std::string_view text) {
  SetSettingValue(store_, Hive::LocalMachine, names::SettingsKey, name, text);
}

bool Settings::IsOn(std::string_view name, bool byDefault) const {
  const std::string text = Get(name);
  return text == "1" || (text != "0" && byDefault);
}

}  // namespace tallyo
