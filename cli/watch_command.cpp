#include "cli/watch_command.h"

#include <chrono>
#include <ostream>
#include <string>

#include "cli/refusal_text.h"
#include "cli/sessions.h"
#include "cli/status_commands.h"
#include "text/dates.h"

namespace tallyo {
namespace {

using Deadline = std::optional<std::chrono::steady_clock::time_point>;

Deadline In(std::optional<double> seconds) {
  if (!seconds) {
    return std::nullopt;
  }
  return std::chrono::steady_clock::now() +
         std::chrono::milliseconds(static_cast<long>(*seconds * 1000));
}

bool Over(const Deadline& deadline) {
  return deadline && std::chrono::steady_clock::now() >= *deadline;
}

// Says how a refresh ended; the same failure, tried again with every tick, is said once.
class Reporter {
 public:
  explicit Reporter(Console& console) : console_(console) {}

  void Tell(const Program& program, RefreshOutcome outcome) {
    const std::string why = WhyNotRefreshed(program, outcome);
    if (!why.empty()) {
      Complain(why);
      return;
    }
    lastComplaint_.clear();
    if (!console_.options.json) {
      console_.out << ClockText(console_.clock.Now()) << '\n';
      PrintStatus(console_, program);
      console_.out << std::endl;  // a person, or a log, follows along
    }
  }

  void Complain(const std::string& why) {
    if (why != lastComplaint_) {
      Refuse(console_, why);
      lastComplaint_ = why;
    }
  }

 private:
  Console& console_;
  std::string lastComplaint_;
};

}  // namespace

ExitStatus Watch(Console& console, std::optional<double> seconds) {
  Reporter reporter(console);
  return RunLasting(
      console,
      [&](Program& program, SignalPump& pump) {
        const Deadline deadline = In(seconds);
        program.refresh.OnFinished = [&](RefreshOutcome outcome) {
          reporter.Tell(program, outcome);
        };
        if (program.form.Combo1.Count() == 0) {
          reporter.Complain(WhyNotRefreshed(program, RefreshOutcome::NoLinks));
        }
        while (!Over(deadline)) {
          program.Dispatch([&] { program.form.Timer1.Tick(); });
          pump.Wait(-1, program.form.Timer1.IntervalMilliseconds());
        }
        return ExitStatus::Done;
      },
      [&](Program& program) {
        if (console.options.json) {
          PrintStatus(console, program);
        }
      });
}

}  // namespace tallyo
