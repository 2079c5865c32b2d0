#pragma once

#include <string>
#include <string_view>

#include "settings/settings_store.h"

namespace tallyo {

// A typed value as the program's text: a string without its last byte (its NUL), a 32-bit number as
// signed decimal text, "" for an empty string value, a number that has not four bytes, and every
// other type.
[[nodiscard]] std::string TextOf(const TypedValue& value);

// A text as a string value, with its NUL.
[[nodiscard]] TypedValue StringValue(std::string_view text);

// A number as a 32-bit value, little endian.
[[nodiscard]] TypedValue NumberValue(std::int32_t number);

// The text of a value; "" where it is missing or cannot be read.
[[nodiscard]] std::string QuerySettingValue(SettingsStore& store, Hive hive,
                                            std::string_view keyPath, std::string_view valueName);

// Writes a text as a string value, the key created where it is missing; a failure is lost silently.
void SetSettingValue(SettingsStore& store, Hive hive, std::string_view keyPath,
                     std::string_view valueName, std::string_view text);

}  // namespace tallyo
