#include "service/arguments.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "service/help_text.h"

namespace tallyo::service {

namespace {

// What the options were given, before it is made into a command.
struct Given {
  std::string database;
  std::string account;
  std::optional<std::string> company;
  std::optional<int> maxLinks;
  std::optional<std::string> goodThrough;
  std::optional<std::string> opened;
  std::optional<std::string> ban;
  std::string listen = "127.0.0.1:8080";
  std::vector<std::string> manageFrom;
};

struct Parser {
  CLI::App app{kDescription, "tallyo-service"};
  CLI::App* addAccount = nullptr;
  CLI::App* listAccounts = nullptr;
  CLI::App* setAccount = nullptr;
  CLI::App* serve = nullptr;
  Given given;
};

// A check that says why a value is refused; the option is named in front of it.
CLI::Validator Checked(std::string (*why)(std::string_view)) {
  return {[why](std::string& text) { return why(text); }, ""};
}

std::string WhyDateIsRefused(std::string_view text) {
  return IsRealDate(text) ? "" : std::string(text) + " is no real date of the form mm/dd/yyyy";
}

std::string WhyListenIsRefused(std::string_view text) {
  return ListenAddress::Parse(text) ? "" : std::string(text) + " is no ADDRESS:PORT";
}

std::string WhyNetworkIsRefused(std::string_view text) {
  return Network::Parse(text) ? "" : std::string(text) + " is no network";
}

void AddTerms(CLI::App& command, Given& given, bool required) {
  command.add_option("ACCOUNT", given.account, "Name of the account: no commas, no slashes")
      ->required()
      ->check(Checked(&WhyAccountNameIsRefused));
  command.add_option("--company", given.company, "Company it belongs to: no commas")
      ->required(required)
      ->type_name("NAME")
      ->check(Checked(&WhyCompanyIsRefused));
  command.add_option("--max", given.maxLinks, "Most links it may register, 0 to 32767")
      ->required(required)
      ->type_name("N")
      ->check(CLI::Range(0, kMostLinksOfAnAccount));
  command.add_option("--exp", given.goodThrough, "Good-through date: clients want a later day")
      ->required(required)
      ->type_name("mm/dd/yyyy")
      ->check(Checked(&WhyDateIsRefused));
  command.add_option("--opn", given.opened, "Day it was opened (a new account: today)")
      ->type_name("mm/dd/yyyy")
      ->check(Checked(&WhyDateIsRefused));
}

void AddAccountCommands(Parser& parser) {
  CLI::App* account = parser.app.add_subcommand("account", "Makes, lists and changes accounts");
  account->require_subcommand(1);
  parser.addAccount = account->add_subcommand("add", "Makes an account");
  AddTerms(*parser.addAccount, parser.given, true);
  parser.listAccounts = account->add_subcommand("list", "Shows all accounts as a table");
  parser.setAccount = account->add_subcommand("set", "Changes what is given, leaves the rest");
  AddTerms(*parser.setAccount, parser.given, false);
  parser.setAccount->add_option("--ban", parser.given.ban, "Whether it is banned: adds no links")
      ->type_name("yes|no")
      ->check(CLI::IsMember({"yes", "no"}));
}

void AddServeCommand(Parser& parser) {
  parser.serve = parser.app.add_subcommand("serve", "Answers requests until it is stopped");
  parser.serve->footer(kServeNotes);
  parser.serve->add_option("--listen", parser.given.listen, "Where to listen; port 0: a free one")
      ->type_name("ADDRESS:PORT")
      ->capture_default_str()
      ->check(Checked(&WhyListenIsRefused));
  parser.serve
      ->add_option("--manage-from", parser.given.manageFrom,
                   "Network that may manage accounts, instead of 127.0.0.0/8 and ::1")
      ->type_name("CIDR")
      ->allow_extra_args(false)
      ->check(Checked(&WhyNetworkIsRefused));
}

void AddEverything(Parser& parser) {
  parser.app.set_version_flag("--version", "tallyo-service " TALLYO_VERSION);
  parser.app.set_help_all_flag("--help-all", "Print this help and that of every command");
  parser.app.fallthrough();
  parser.app.require_subcommand(1);
  parser.app.add_option("--database", parser.given.database, "File that holds accounts and counts")
      ->required()
      ->type_name("FILE");
  AddAccountCommands(parser);
  AddServeCommand(parser);
  parser.app.footer(kExamples);  // behind the commands, which would inherit it
}

AllowedNetworks ManagersOf(const Given& given) {
  if (given.manageFrom.empty()) return AllowedNetworks::Loopback();
  std::vector<Network> networks;
  for (const std::string& text : given.manageFrom) networks.push_back(*Network::Parse(text));
  return AllowedNetworks(std::move(networks));
}

Command CommandOf(const Parser& parser) {
  const Given& given = parser.given;
  if (parser.addAccount->parsed()) {
    return AddAccount{{given.account, *given.company, *given.maxLinks,
                       given.opened.value_or(TodaysDate()), *given.goodThrough}};
  }
  if (parser.listAccounts->parsed()) return ListAccounts{};
  if (parser.serve->parsed()) return Serve{*ListenAddress::Parse(given.listen), ManagersOf(given)};
  SetAccount set;
  set.name = given.account;
  set.change = {given.company, given.maxLinks, given.opened, given.goodThrough, std::nullopt};
  if (given.ban) set.change.banned = *given.ban == "yes";
  if (set.change.IsEmpty()) return WrongUsage{"account set: nothing to change was given"};
  return set;
}

}  // namespace

CommandLine ParseArguments(int count, const char* const* arguments) {
  const auto parser = std::make_unique<Parser>();
  AddEverything(*parser);
  try {
    parser->app.parse(count, arguments);
  } catch (const CLI::CallForHelp&) {
    return {"", ShowText{parser->app.help()}};
  } catch (const CLI::CallForAllHelp&) {
    return {"", ShowText{parser->app.help("", CLI::AppFormatMode::All)}};
  } catch (const CLI::CallForVersion& version) {
    return {"", ShowText{std::string(version.what()) + "\n"}};
  } catch (const CLI::ParseError& error) {
    return {"", WrongUsage{error.what()}};
  }
  return {parser->given.database, CommandOf(*parser)};
}

}  // namespace tallyo::service
