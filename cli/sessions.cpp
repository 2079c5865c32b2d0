#include "cli/sessions.h"

#include <ostream>

#include "platform/curl_transfer.h"
#include "platform/process_lock.h"
#include "platform/transport_failure.h"
#include "settings/version.h"

namespace tallyo {
namespace {

// What a command that only reads needs of a machine: nothing is fetched, nobody is asked, and
// signals end it as they end any program.
class NoEvents final : public EventPump {
 protected:
  void RunPending() override {}
};

class NoBoxes final : public MessageBoxes {
 public:
  using MessageBoxes::MessageBoxes;

 protected:
  BoxAnswer Ask(const MessageBox& /*box*/) override { return BoxAnswer::No; }
};

class NoTransfer final : public HttpTransfer {
 public:
  std::string Get(const TransferRequest& /*request*/, EventPump& /*pump*/) override {
    throw TransportFailure(TransportFailure::Reason::Failed, "this command fetches nothing");
  }
  void Cancel() override {}
};

// A terminal has no documents to open and no desktop to log on to.
class NoShell final : public Shell {
 public:
  void Open(const std::filesystem::path& /*document*/) override {}
  void RunAtLogon(bool /*run*/) override {}
};

ProgramOptions OptionsOf(const Console& console) {
  return {.appDir = console.options.appDir,
          .serviceBaseUrl = console.options.serviceBaseUrl,
          .appendAfterLast = true,
          .countOnce = true};
}

// One line where what the command does cannot be kept.
void SayProblem(Console& console, const SqliteStore& store, ProcessLock::Outcome lock) {
  if (!store.Problem().empty()) {
    Refuse(console, store.Problem());
  } else if (lock == ProcessLock::Outcome::Unavailable) {
    Refuse(console, "the folder " + console.options.appDir.string() +
                        " cannot be written; nothing will be kept");
  }
}

ExitStatus SayRunning(Console& console) {
  return Refuse(console,
                "Tallyo is running in " + console.options.appDir.string() + "; quit it first");
}

}  // namespace

ExitStatus RunChanging(Console& console, const std::function<ExitStatus(Program&)>& work,
                       const std::function<void(Program&)>& report) {
  return RunLasting(
      console,
      [&](Program& program, SignalPump& /*pump*/, TerminalBoxes& /*boxes*/) {
        return work(program);
      },
      report);
}

ExitStatus RunLasting(Console& console,
                      const std::function<ExitStatus(Program&, SignalPump&, TerminalBoxes&)>& work,
                      const std::function<void(Program&)>& report) {
  const ProcessLock lock(console.options.appDir);
  if (lock.Result() == ProcessLock::Outcome::HeldByAnother) {
    return SayRunning(console);
  }
  SqliteStore store(StoreFile(console.options.appDir), StoreAccess::ReadWrite);
  SayProblem(console, store, lock.Result());
  PosixFiles files;
  CurlTransfer transfer(UserAgent());
  SignalPump pump;
  TerminalBoxes boxes(console, pump);
  NoShell shell;
  Program program(OptionsOf(console), {.clock = console.clock,
                                       .files = files,
                                       .transfer = transfer,
                                       .store = store,
                                       .pump = pump,
                                       .boxes = boxes,
                                       .shell = shell});
  pump.OnSignal([&] { program.Quit(); });
  ExitStatus status = ExitStatus::Done;
  program.Dispatch([&] { program.StartProgram(); });
  program.Dispatch([&] {
    status = ExitStatus::Refused;  // stands where the work fails on its way
    status = work(program, pump, boxes);
  });
  if (program.Ended()) {
    status = ExitStatus::Done;
  }
  program.Quit();
  report(program);
  return status;
}

ExitStatus RunReading(Console& console, const std::function<ExitStatus(Program&)>& work) {
  SqliteStore store(StoreFile(console.options.appDir), StoreAccess::ReadOnly);
  SayProblem(console, store, ProcessLock::Outcome::Taken);
  PosixFiles files;
  NoTransfer transfer;
  NoEvents pump;
  NoBoxes boxes(pump);
  NoShell shell;
  Program program(OptionsOf(console), {.clock = console.clock,
                                       .files = files,
                                       .transfer = transfer,
                                       .store = store,
                                       .pump = pump,
                                       .boxes = boxes,
                                       .shell = shell});
  program.LoadForReading();
  return work(program);
}

ExitStatus RunOnStore(Console& console, StoreAccess access,
                      const std::function<ExitStatus(SqliteStore&)>& work) {
  if (access == StoreAccess::ReadOnly) {
    SqliteStore store(StoreFile(console.options.appDir), access);
    SayProblem(console, store, ProcessLock::Outcome::Taken);
    return work(store);
  }
  const ProcessLock lock(console.options.appDir);
  if (lock.Result() == ProcessLock::Outcome::HeldByAnother) {
    return SayRunning(console);
  }
  SqliteStore store(StoreFile(console.options.appDir), access);
  SayProblem(console, store, lock.Result());
  return work(store);
}

std::filesystem::path StoreFile(const std::filesystem::path& appDir) {
  return appDir / "settings.db";
}

}  // namespace tallyo
