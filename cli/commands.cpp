#include "cli/commands.h"

#include <charconv>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/account_commands.h"
#include "cli/command_words.h"
#include "cli/daily_command.h"
#include "cli/status_commands.h"
#include "cli/text_commands.h"
#include "cli/watch_command.h"
#include "text/dates.h"

namespace tallyo {
namespace {

void AddCsv(CLI::App& app, CLI::App& command, bool& csv) {
  CLI::Option* json = app.get_option("--json");
  CLI::Option* option =
      command.add_flag("--csv", csv, "Print comma-separated values with a heading line");
  option->excludes(json);
  json->remove_excludes(option);  // its help would name every command's --csv
}

std::string WhyNoSeconds(const std::string& text) {
  constexpr double kMost = 1e9;
  double seconds = -1;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, seconds);
  if (error == std::errc() && stop == end && seconds >= 0 && seconds <= kMost) {
    return "";
  }
  return text + " is no number of seconds from 0 to 1000000000";
}

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

void AddStatus(CLI::App& app, ChosenCommand& chosen) {
  Choose(app.add_subcommand("refresh", "Fetch the counters once and show them"), chosen,
         std::make_shared<NoWords>(),
         [](Console& console, const NoWords&) { return Refresh(console); });
  auto csv = std::make_shared<bool>(false);
  CLI::App* status = app.add_subcommand("status", "Show the counters last fetched");
  AddCsv(app, *status, *csv);
  Choose(status, chosen, csv, [](Console& console, bool given) {
    return Status(console, given ? StatusFormat::Csv : StatusFormat::AsOptions);
  });
  Choose(app.add_subcommand("info", "Verify the account and show the service details"), chosen,
         std::make_shared<NoWords>(),
         [](Console& console, const NoWords&) { return Info(console); });
}

void AddDaily(CLI::App& app, ChosenCommand& chosen) {
  auto choice = std::make_shared<DailyChoice>();
  CLI::App* daily = app.add_subcommand("daily", "Show one link's month, hours by days");
  CLI::Option* name = daily->add_option("NAME", choice->name, "The link's friendly name");
  CLI::Option* all = daily->add_flag("--all", choice->all, "All links instead of one");
  all->excludes(name);
  daily->add_option("--month", choice->month, "Jan to Dec, of this year (default: this month)")
      ->check(CLI::IsMember(std::vector<std::string>(kMonthNames.begin(), kMonthNames.end())));
  AddCsv(app, *daily, choice->csv);
  daily->callback([&chosen, choice, name, all] {
    if (name->empty() && all->empty()) {
      throw CLI::RequiredError("NAME, or --all,");
    }
    chosen = [choice](Console& console) { return Daily(console, *choice); };
  });
}

void AddWatch(CLI::App& app, ChosenCommand& chosen) {
  auto seconds = std::make_shared<std::optional<double>>();
  CLI::App* watch =
      app.add_subcommand("watch", "Refresh whenever it is due, until interrupted (Ctrl+C)");
  watch->add_option("--for", *seconds, "End after so many seconds")
      ->type_name("SECONDS")
      ->check(&WhyNoSeconds);
  Choose(watch, chosen, seconds, [](Console& console, const std::optional<double>& given) {
    return Watch(console, given);
  });
}

void AddTexts(CLI::App& app, ChosenCommand& chosen) {
  CLI::App* config = AddGroup(app, "config", "The whole configuration");
  Choose(config->add_subcommand("export", "Write the configuration into ACCOUNT.export"), chosen,
         std::make_shared<NoWords>(),
         [](Console& console, const NoWords&) { return ConfigExport(console); });
  struct Words {
    std::string company;
    std::string account;
  };
  auto words = std::make_shared<Words>();
  CLI::App* import =
      config->add_subcommand("import", "Load ACCOUNT.export where no link is monitored");
  import->add_option("COMPANY", words->company, "The company in the file")->required();
  import->add_option("ACCOUNT", words->account, "The account in the file")->required();
  Choose(import, chosen, words, [](Console& console, const Words& given) {
    return ConfigImport(console, given.company, given.account);
  });
  CLI::App* stats = AddGroup(app, "stats", "The counters as a text");
  Choose(stats->add_subcommand("export", "Show the counters as a text to copy"), chosen,
         std::make_shared<NoWords>(),
         [](Console& console, const NoWords&) { return StatsExport(console); });
  auto name = std::make_shared<std::string>();
  CLI::App* link =
      app.add_subcommand("counting-link", "Show the address that counts a link's hits");
  link->add_option("NAME", *name, "The link's friendly name")->required();
  Choose(link, chosen, name,
         [](Console& console, const std::string& given) { return CountingLinkOf(console, given); });
}

}  // namespace

void AddCommands(CLI::App& app, ChosenCommand& chosen) {
  AddAccount(app, chosen);
  AddLinks(app, chosen);
  AddStatus(app, chosen);
  AddDaily(app, chosen);
  AddWatch(app, chosen);
  AddTexts(app, chosen);
  AddSettings(app, chosen);
}

}  // namespace tallyo
