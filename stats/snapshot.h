#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_set>

#include "form/main_form.h"
#include "form/shared_state.h"
#include "links/monitored_links.h"
#include "platform/files.h"
#include "settings/settings.h"
#include "stats/daily_files.h"

namespace tallyo {

// The last counters seen, kept between two sessions in Data/LastRead.dat: one line of
// "name=counter," for each row of the current status, in order. While a session lasts, the same
// line is kept in Data/LastRead.now after every refresh: it stands in for LastRead.dat where the
// session is killed, so that the next one does not take whole counters for growth.
class Snapshot {
 public:
  // countOnce is what the setting "CountOnce" means where it is absent.
  Snapshot(MainForm& form, const SharedState& state, Settings& settings, Files& files,
           MonitoredLinks& links, DailyFiles& dailyFiles, bool countOnce)
      : form_(form),
        state_(state),
        settings_(settings),
        files_(files),
        links_(links),
        dailyFiles_(dailyFiles),
        countOnce_(countOnce) {}

  // At the end of a session. Throws RuntimeError where the file cannot be written; it is then as it
  // was.
  void SaveSnapshot();

  // After a refresh; lost silently where it cannot be written.
  void KeepForRecovery();

  // At the start of a session: takes what a killed one kept, where it left no snapshot of its own.
  void Recover();

  // Puts the counters into the rows by position, the i-th entry into the i-th row. Ends silently at
  // its first error, a missing file included; what it did until then stays. Without a snapshot it
  // takes what the running session keeps.
  void LoadSnapshot();

  // Notes that a refresh has written the growth of a link to the daily files itself.
  void NoteWritten(const std::string& name) { written_.insert(name); }

  // Writes what has been counted since the snapshot to the daily files, then deletes it. Ends
  // silently at its first error and then keeps the file, so that the next refresh tries again.
  // Where the setting "CountOnce" is on, links whose growth is written already are passed over.
  void ApplySnapshot();

 private:
  [[nodiscard]] std::string Line() const;
  void Write(const std::filesystem::path& file, std::string_view content);
  void Load();
  void Apply(bool countOnce);
  void Settle(const std::string& name, std::int16_t value);

  MainForm& form_;
  const SharedState& state_;
  Settings& settings_;
  Files& files_;
  MonitoredLinks& links_;
  DailyFiles& dailyFiles_;
  bool countOnce_;
  std::unordered_set<std::string> written_;  // friendly names, since the snapshot was taken
};

}  // namespace tallyo
