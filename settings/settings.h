#pragma once

#include <string>
#include <string_view>

#include "settings/settings_store.h"

namespace tallyo {

// The program's own settings: the values under SettingsKey, all of them texts.
class Settings {
 public:
  explicit Settings(SettingsStore& store) : store_(store) {}

  // "" where the value is missing.
  [[nodiscard]] std::string Get(std::string_view name) const;
  void Set(std::string_view name, std::string_view text);

  // A switch: "1" is on, "0" is off, anything else leaves it as the program was built to do.
  [[nodiscard]] bool IsOn(std::string_view name, bool byDefault) const;

  // The store itself, for keys other than SettingsKey.
  [[nodiscard]] SettingsStore& Store() const { return store_; }

 private:
  SettingsStore& store_;
};

}  // namespace tallyo
