#include "settings/value_text.h"

#include <cstdint>

namespace tallyo {

std::string TextOf(const TypedValue& value) {
  if (value.type == kStringType && !value.data.empty()) {
    return value.data.substr(0, value.data.size() - 1);
  }
  if (value.type == kNumberType && value.data.size() == 4) {
    std::uint32_t number = 0;
    for (std::size_t i = 4; i-- > 0;) {
      number = (number << 8U) | static_cast<unsigned char>(value.data[i]);
    }
    return std::to_string(static_cast<std::int32_t>(number));
  }
  return "";
}

TypedValue StringValue(std::string_view text) {
  TypedValue value{kStringType, std::string(text)};
  value.data += '\0';
  return value;
}

TypedValue NumberValue(std::int32_t number) {
  TypedValue value{kNumberType, ""};
  for (unsigned shift = 0; shift < 32; shift += 8) {
    value.data += static_cast<char>((static_cast<std::uint32_t>(number) >> shift) & 0xFFU);
  }
  return value;
}

std::string QuerySettingValue(SettingsStore& store, Hive hive, std::string_view keyPath,
                              std::string_view valueName) {
  const std::optional<TypedValue> value = store.Read(hive, keyPath, valueName);
  return value ? TextOf(*value) : "";
}

void SetSettingValue(SettingsStore& store, Hive hive, std::string_view keyPath,
                     std::string_view valueName, std::string_view text) {
  store.AsOneChange([&] {
    if (!store.KeyExists(hive, keyPath)) {
      store.CreateKey(hive, keyPath);
    }
    store.Write(hive, keyPath, valueName, StringValue(text));
  });
}

}  // namespace tallyo
