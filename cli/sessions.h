#pragma once

#include <functional>

#include "app/program.h"
#include "cli/console_options.h"
#include "cli/signal_pump.h"
#include "cli/terminal_boxes.h"
#include "platform/posix_files.h"
#include "settings/sqlite_store.h"

namespace tallyo {

// A command that changes something: takes the lock of the AppDir, starts the program, runs the
// work, and quits as the window does. The work returns how the command ends; where a signal ended
// the program meanwhile, the command is done. What the work left in the program's window is still
// there for `report`, which runs after everything is saved.
ExitStatus RunChanging(Console& console, const std::function<ExitStatus(Program&)>& work,
                       const std::function<void(Program&)>& report);

// The same for work that waits for events itself.
ExitStatus RunLasting(Console& console,
                      const std::function<ExitStatus(Program&, SignalPump&, TerminalBoxes&)>& work,
                      const std::function<void(Program&)>& report);

// A command that only reads: no lock is needed, and nothing is written anywhere.
ExitStatus RunReading(Console& console, const std::function<ExitStatus(Program&)>& work);

// A command about the settings store itself, without a program. Where it changes something it takes
// the lock.
ExitStatus RunOnStore(Console& console, StoreAccess access,
                      const std::function<ExitStatus(SqliteStore&)>& work);

// Where the settings store of an AppDir is.
[[nodiscard]] std::filesystem::path StoreFile(const std::filesystem::path& appDir);

}  // namespace tallyo
