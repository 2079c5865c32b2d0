#include "service/run_program.h"

#include <cerrno>
#include <exception>
#include <filesystem>
#include <string>
#include <variant>

#include "service/account_commands.h"
#include "service/arguments.h"
#include "service/service.h"

namespace tallyo::service {

namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

// A reader that has enough of a text and goes away, as `head` does, is no failure.
int Print(const std::string& text, std::ostream& out, std::ostream& err) {
  errno = 0;
  out << text << std::flush;
  if (out || errno == EPIPE) return kDone;
  err << "tallyo-service: the result could not be written\n";
  return kFailed;
}

int RunServe(const std::filesystem::path& database, const Serve& command, std::ostream& out,
             std::ostream& err, const std::function<void()>& waitForStop) {
  const auto report = [&err](const std::string& line) {
    err << "tallyo-service: " << line << std::endl;
  };
  Service service({database, command.listen, command.managers}, report);
  out << service.Url() << std::endl;  // whoever started the program waits for this line
  waitForStop();
  if (service.Stop()) return kDone;
  err << "tallyo-service: the last hits could not be stored\n";
  return kFailed;
}

}  // namespace

int RunProgram(int count, const char* const* arguments, std::ostream& out, std::ostream& err,
               const std::function<void()>& waitForStop) {
  const CommandLine line = ParseArguments(count, arguments);
  if (const auto* show = std::get_if<ShowText>(&line.command)) {
    return Print(show->text, out, err);
  }
  if (const auto* wrong = std::get_if<WrongUsage>(&line.command)) {
    err << "tallyo-service: " << wrong->why << "\nRun with --help for more.\n";
    return kWrongUsage;
  }
  try {
    if (const auto* add = std::get_if<AddAccount>(&line.command))
      return Run(line.database, *add, err);
    if (const auto* set = std::get_if<SetAccount>(&line.command))
      return Run(line.database, *set, err);
    if (std::holds_alternative<ListAccounts>(line.command)) {
      return Print(AccountTable(line.database), out, err);
    }
    return RunServe(line.database, std::get<Serve>(line.command), out, err, waitForStop);
  } catch (const std::exception& error) {
    err << "tallyo-service: " << error.what() << "\n";
    return kFailed;
  }
}

}  // namespace tallyo::service
