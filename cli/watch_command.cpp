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

  void TellRefresh(const Program& program, RefreshOutcome outcome) {
    spoken_ = true;
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

  // What a tick left without a refresh: why the account keeps it from one, or, the first time, when
  // the next is due.
  void TellTick(const Program& program) {
    const ReportList& details = program.form.ListView3;
    const std::string nextCheck = details.Value(detail::kNextCheck, 1);
    if (details.Value(detail::kSlotsLeft, 1).empty() || nextCheck.empty()) {
      Complain(WhyAccountRefused(program));
    } else if (!spoken_ && !console_.options.json) {
      console_.out << program.form.Label8.Caption() << "; next check: " << nextCheck << std::endl;
    }
    spoken_ = true;
  }

  void Complain(const std::string& why) {
    if (!why.empty() && why != lastComplaint_) {
      Refuse(console_, why);
      lastComplaint_ = why;
    }
  }

 private:
  Console& console_;
  std::string lastComplaint_;
  bool spoken_ = false;
};

}  // namespace

ExitStatus Watch(Console& console, std::optional<double> seconds) {
  Reporter reporter(console);
  return RunLasting(
      console,
      [&](Program& program, SignalPump& pump, TerminalBoxes& boxes) {
        const Deadline deadline = In(seconds);
        program.refresh.OnFinished = [&](RefreshOutcome outcome) {
          reporter.TellRefresh(program, outcome);
        };
        const bool hasLinks = program.form.Combo1.Count() > 0;
        if (!hasLinks) {
          reporter.Complain(WhyNotRefreshed(program, RefreshOutcome::NoLinks));
        }
        while (!Over(deadline)) {
          boxes.BeginRound();
          if (program.Dispatch([&] { program.form.Timer1.Tick(); }) && hasLinks) {
            reporter.TellTick(program);
          }
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
