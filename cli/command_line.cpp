#include "cli/command_line.h"

#include <poll.h>

#include <algorithm>
#include <filesystem>
#include <ostream>

#include "cli/commands.h"
#include "cli/safe_text.h"
#include "platform/http_transfer.h"
#include "platform/transport_failure.h"
#include "settings/version.h"

namespace tallyo {
namespace {

struct GlobalWords {
  std::string appDir;
  std::string serviceUrl;
  std::string answer;
  bool json = false;
};

constexpr const char* kFooter =
    "Examples:\n"
    "  tallyo-cli account save 'Acme Widgets' mysite\n"
    "  tallyo-cli links add http://files.example/pub/setup.exe --name 'My Setup' --size 250\n"
    "  tallyo-cli refresh\n"
    "  tallyo-cli daily 'My Setup' --month Nov\n"
    "\n"
    "Exit status: 0 done, 1 refused or failed, 2 wrong usage.";

// The base address ends with a slash, so that paths are appended without one.
std::string WithSlash(std::string url) {
  if (!url.ends_with('/')) {
    url += '/';
  }
  return url;
}

// "" for an address that can be sent.
std::string WhyNoAddress(const std::string& url) {
  try {
    CheckAddress(url);
    return "";
  } catch (const TransportFailure& failure) {
    return failure.what();
  }
}

void AddGlobals(CLI::App& app, GlobalWords& words) {
  app.add_option("--app-dir", words.appDir, "Folder that holds Tallyo's data")
      ->capture_default_str();
  app.add_option("--service-url", words.serviceUrl, "Base address of the service")
      ->capture_default_str()
      ->check([](const std::string& url) { return WhyNoAddress(WithSlash(url)); });
  app.add_option("--answer", words.answer, "Answer every question with yes or no")
      ->check(CLI::IsMember({"yes", "no"}));
  app.add_flag("--json", words.json, "Print results as one JSON document");
  app.set_version_flag("--version", "tallyo-cli " + Version());
}

ConsoleOptions OptionsOf(const GlobalWords& words) {
  ConsoleOptions options;
  options.appDir = std::filesystem::absolute(words.appDir).lexically_normal();
  options.serviceBaseUrl = WithSlash(words.serviceUrl);
  options.json = words.json;
  if (!words.answer.empty()) {
    options.answer = words.answer == "yes" ? BoxAnswer::Yes : BoxAnswer::No;
  }
  return options;
}

// Whether whoever read the output has enough of it and went away, as `head` does.
bool ReaderIsGone(const ConsoleHost& host) {
  pollfd output{.fd = host.outDescriptor, .events = 0, .revents = 0};
  return poll(&output, 1, 0) == 1 && (output.revents & (POLLERR | POLLHUP)) != 0;
}

// A result that did not reach its reader, because of a full disk, is no result.
int WithOutputWritten(const ConsoleHost& host, ExitStatus status) {
  host.out.flush();
  if (!host.out && !ReaderIsGone(host)) {
    host.err << "tallyo-cli: the result could not be written\n";
    status = ExitStatus::Refused;
  }
  return static_cast<int>(status);
}

// What is wrong with the words. A command that does not exist is named; the parser would only miss
// the one that it expects.
int SayUsage(const CLI::App& app, const CLI::ParseError& error, const ConsoleHost& host) {
  const std::vector<std::string> unknown = app.remaining(true);
  host.err << "tallyo-cli: "
           << (unknown.empty() ? OneLine(error.what())
                               : "'" + OneLine(unknown.front()) + "' is not expected here")
           << "\nSee 'tallyo-cli --help'.\n";
  return static_cast<int>(ExitStatus::WrongUsage);
}

}  // namespace

int RunCommandLine(const std::vector<std::string>& words, const ConsoleHost& host) {
  CLI::App app("Tallyo on a terminal: counting links, their counters and their history.",
               "tallyo-cli");
  app.footer(kFooter);
  GlobalWords globals{.appDir = host.defaultAppDir,
                      .serviceUrl = host.defaultServiceUrl,
                      .answer = "",
                      .json = false};
  AddGlobals(app, globals);
  app.require_subcommand(1);
  app.fallthrough();
  ChosenCommand chosen;
  AddCommands(app, chosen);
  try {
    std::vector<std::string> backwards(words.rbegin(), words.rend());  // as the parser wants them
    app.parse(backwards);
    Console console{host.clock, host.out, host.err, host.terminal, OptionsOf(globals)};
    return WithOutputWritten(host, chosen(console));
  } catch (const CLI::Success& help) {  // --help or --version
    app.exit(help, host.out, host.err);
    return WithOutputWritten(host, ExitStatus::Done);
  } catch (const CLI::ParseError& error) {
    return SayUsage(app, error, host);
  }
}

}  // namespace tallyo
