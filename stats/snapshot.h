#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

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

  // Before these hits are written to the daily files, and after a refresh: the counters that the
  // next session begins with and, so that they stay true, the hours that are about to change. A
  // kill in between counts nothing twice. Lost silently where it cannot be written; ApplySnapshot
  // then leaves the snapshot where it is: older counters are better than none.
  void KeepForRecovery(std::span<const DailyCount> counts = {});

  // Before a link is removed: counters are kept by position, so that where the session is killed
  // before it saves those that are left, the next one has to sort them out.
  void KeepBeforeRemoval();

  // At the start of a session: finishes what a killed one was writing, and takes its counters.
  void Recover();

  // Puts the counters into the rows by position, the i-th entry into the i-th row. Ends silently at
  // its first error, a missing file included; what it did until then stays. While a session runs,
  // or was killed, these are the counters of its last refresh.
  void LoadSnapshot();

  // Notes that a refresh has written the growth of a link to the daily files itself.
  void NoteWritten(const std::string& name) { written_.insert(name); }

  // Writes what has been counted since the snapshot to the daily files, then deletes it. Ends
  // silently at its first error and then keeps the file, so that the next refresh tries again.
  // Where the setting "CountOnce" is on, links whose growth is written already are passed over.
  void ApplySnapshot();

 private:
  [[nodiscard]] std::string Line() const;
  void FinishWriting(std::string_view content);
  [[nodiscard]] std::string OfListedLinks(std::string_view line) const;
  void Write(const std::filesystem::path& file, std::string_view content);
  void Load();
  // False where the snapshot is not used up.
  [[nodiscard]] bool Plan(std::vector<DailyCount>& counts, bool countOnce);
  void Settle(const std::string& name, std::int16_t value, std::vector<DailyCount>& counts) const;

  MainForm& form_;
  const SharedState& state_;
  Settings& settings_;
  Files& files_;
  MonitoredLinks& links_;
  DailyFiles& dailyFiles_;
  bool countOnce_;
  bool recoverable_ = true;                  // the recovery file holds the counters of now
  bool settled_ = false;                     // the snapshot is, though it could not be deleted yet
  std::unordered_set<std::string> written_;  // friendly names, since the snapshot was taken
};

}  // namespace tallyo
