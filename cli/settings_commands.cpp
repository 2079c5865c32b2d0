#include "cli/settings_commands.h"

#include <ostream>

#include "cli/json_output.h"
#include "cli/safe_text.h"
#include "cli/sessions.h"
#include "cli/table.h"
#include "settings/value_text.h"

namespace tallyo {
namespace {

std::string TypeName(std::uint32_t type) {
  if (type == kStringType) {
    return "string";
  }
  return type == kNumberType ? "dword" : std::to_string(type);
}

}  // namespace

ExitStatus SettingsList(Console& console, const std::string& key) {
  return RunOnStore(console, StoreAccess::ReadOnly, [&](SqliteStore& store) {
    Table table({{"Key", "key"}, {"Name", "name"}, {"Type", "type"}, {"Text", "text"}});
    for (const StoredValue& stored : store.ReadTree(Hive::LocalMachine, key)) {
      table.AddRow({stored.key, stored.name, TypeName(stored.value.type), TextOf(stored.value)});
    }
    table.Print(console, "No settings are stored.");
    return ExitStatus::Done;
  });
}

ExitStatus SettingsGet(Console& console, const std::string& key, const std::string& name) {
  return RunOnStore(console, StoreAccess::ReadOnly, [&](SqliteStore& store) {
    const std::string text = QuerySettingValue(store, Hive::LocalMachine, key, name);
    if (console.options.json) {
      PrintDocument(console.out, JsonText(text));
    } else {
      console.out << OneLine(text) << '\n';
    }
    return ExitStatus::Done;
  });
}

ExitStatus SettingsSet(Console& console, const std::string& key, const std::string& name,
                       const TypedValue& value) {
  return RunOnStore(console, StoreAccess::ReadWrite, [&](SqliteStore& store) {
    store.AsOneChange([&] {
      store.CreateKey(Hive::LocalMachine, key);
      store.Write(Hive::LocalMachine, key, name, value);
    });
    if (store.Read(Hive::LocalMachine, key, name) != value) {
      return Refuse(console, "the setting could not be stored");
    }
    if (console.options.json) {
      PrintDocument(console.out, JsonText(TextOf(value)));
    }
    return ExitStatus::Done;
  });
}

}  // namespace tallyo
