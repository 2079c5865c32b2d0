#include "cli/commands.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/account_commands.h"
#include "cli/daily_command.h"
#include "cli/links_commands.h"
#include "cli/settings_commands.h"
#include "cli/status_commands.h"
#include "cli/watch_command.h"
#include "settings/names.h"
#include "settings/value_text.h"
#include "text/dates.h"

namespace tallyo {
namespace {

CLI::App* AddGroup(CLI::App& app, const char* name, const char* what) {
  CLI::App* group = app.add_subcommand(name, what);
  group->require_subcommand(1);
  return group;
}

// The words of one command live as long as the parser that fills them.
template <typename Words, typename Run>
void Choose(CLI::App* command, ChosenCommand& chosen, const std::shared_ptr<Words>& words,
            Run run) {
  command->callback([&chosen, words, run] {
    chosen = [words, run](Console& console) { return run(console, *words); };
  });
}

struct NoWords {};

void AddAccount(CLI::App& app, ChosenCommand& chosen) {
  struct Words {
    std::string company;
    std::string account;
  };
  CLI::App* group = AddGroup(app, "account", "The account on the service");
  auto words = std::make_shared<Words>();
  CLI::App* save = group->add_subcommand("save", "Check an account with the service and store it");
  save->add_option("COMPANY", words->company, "The company the account belongs to")->required();
  save->add_option("ACCOUNT", words->account, "The account's name on the service")->required();
  Choose(save, chosen, words, [](Console& console, const Words& given) {
    return AccountSave(console, given.company, given.account);
  });
  Choose(group->add_subcommand("show", "Show the stored account"), chosen,
         std::make_shared<NoWords>(),
         [](Console& console, const NoWords&) { return AccountShow(console); });
}

void AddLinksAdd(CLI::App& group, ChosenCommand& chosen) {
  auto words = std::make_shared<NewLink>();
  CLI::App* add = group.add_subcommand("add", "Register a link on the service and monitor it");
  add->add_option("PATH", words->path, "The address that visitors are passed on to")->required();
  add->add_option("--name", words->name, "The link's friendly name")->required();
  add->add_option("--reference", words->reference,
                  "The link's name on the service (default: the last part of PATH)");
  add->add_option("--size", words->sizeKb, "The size of the file, in KB");
  Choose(add, chosen, words,
         [](Console& console, const NewLink& link) { return LinksAdd(console, link); });
}

void AddLinks(CLI::App& app, ChosenCommand& chosen) {
  CLI::App* group = AddGroup(app, "links", "The monitored links");
  Choose(group->add_subcommand("list", "List the monitored links"), chosen,
         std::make_shared<NoWords>(),
         [](Console& console, const NoWords&) { return LinksList(console); });
  AddLinksAdd(*group, chosen);
  auto name = std::make_shared<std::string>();
  CLI::App* remove = group->add_subcommand("remove", "Remove a link from the service and the list");
  remove->add_option("NAME", *name, "The link's friendly name")->required();
  Choose(remove, chosen, name,
         [](Console& console, const std::string& given) { return LinksRemove(console, given); });
}

void AddStatus(CLI::App& app, ChosenCommand& chosen) {
  Choose(app.add_subcommand("refresh", "Fetch the counters once and show them"), chosen,
         std::make_shared<NoWords>(),
         [](Console& console, const NoWords&) { return Refresh(console); });
  Choose(app.add_subcommand("status", "Show the counters last fetched"), chosen,
         std::make_shared<NoWords>(),
         [](Console& console, const NoWords&) { return Status(console); });
  Choose(app.add_subcommand("info", "Verify the account and show the service details"), chosen,
         std::make_shared<NoWords>(),
         [](Console& console, const NoWords&) { return Info(console); });
}

void AddDaily(CLI::App& app, ChosenCommand& chosen) {
  auto choice = std::make_shared<DailyChoice>();
  CLI::App* daily = app.add_subcommand("daily", "Show one link's month, hours by days");
  daily->add_option("NAME", choice->name, "The link's friendly name")->required();
  daily->add_option("--month", choice->month, "Jan to Dec, of this year (default: this month)")
      ->check(CLI::IsMember(std::vector<std::string>(kMonthNames.begin(), kMonthNames.end())));
  Choose(daily, chosen, choice,
         [](Console& console, const DailyChoice& given) { return Daily(console, given); });
}

void AddWatch(CLI::App& app, ChosenCommand& chosen) {
  auto seconds = std::make_shared<std::optional<double>>();
  CLI::App* watch =
      app.add_subcommand("watch", "Refresh whenever it is due, until interrupted (Ctrl+C)");
  watch->add_option("--for", *seconds, "End after so many seconds")->check(CLI::Range(0.0, 1e9));
  Choose(watch, chosen, seconds, [](Console& console, const std::optional<double>& given) {
    return Watch(console, given);
  });
}

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

}  // namespace

void AddCommands(CLI::App& app, ChosenCommand& chosen) {
  AddAccount(app, chosen);
  AddLinks(app, chosen);
  AddStatus(app, chosen);
  AddDaily(app, chosen);
  AddWatch(app, chosen);
  AddSettings(app, chosen);
}

}  // namespace tallyo
