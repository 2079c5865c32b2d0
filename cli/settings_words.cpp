#include <charconv>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "cli/command_words.h"
#include "cli/settings_commands.h"
#include "settings/names.h"
#include "settings/value_text.h"

namespace tallyo {
namespace {

struct SettingWords {
  std::string key{names::SettingsKey};
  std::string name;
  std::string text;
  std::string type = "string";
};

// A number as it is typed: signed, or unsigned up to 32 bits.
std::optional<std::int32_t> DwordOf(const std::string& text) {
  std::int64_t number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end || number < INT32_MIN || number > UINT32_MAX) {
    return std::nullopt;
  }
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(number));
}

TypedValue ValueOf(const SettingWords& words) {
  if (words.type == "string") {
    return StringValue(words.text);
  }
  const std::optional<std::int32_t> number = DwordOf(words.text);
  if (!number) {
    throw CLI::ValidationError("TEXT", words.text + " is no 32-bit number");
  }
  return NumberValue(*number);
}

}  // namespace

void AddSettings(CLI::App& app, ChosenCommand& chosen) {
  CLI::App* group = AddGroup(app, "settings", "The settings store");
  auto words = std::make_shared<SettingWords>();
  CLI::App* list = group->add_subcommand("list", "List the settings of a key and those below it");
  CLI::App* get = group->add_subcommand("get", "Show one setting");
  CLI::App* set = group->add_subcommand("set", "Store one setting");
  for (CLI::App* command : {list, get, set}) {
    command->add_option("--key", words->key, "The key's path (default: Tallyo's own)");
  }
  get->add_option("NAME", words->name, "The setting's name")->required();
  set->add_option("NAME", words->name, "The setting's name")->required();
  set->add_option("TEXT", words->text, "Its text")->required();
  set->add_option("--type", words->type, "string, or dword for a 32-bit number")
      ->check(CLI::IsMember({"string", "dword"}));
  Choose(list, chosen, words, [](Console& console, const SettingWords& given) {
    return SettingsList(console, given.key);
  });
  Choose(get, chosen, words, [](Console& console, const SettingWords& given) {
    return SettingsGet(console, given.key, given.name);
  });
  set->callback([&chosen, words] {
    chosen = [words, value = ValueOf(*words)](Console& console) {
      return SettingsSet(console, words->key, words->name, value);
    };
  });
}

}  // namespace tallyo
