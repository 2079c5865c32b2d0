#include "stats/snapshot.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "settings/names.h"
#include "stats/hour_total.h"
#include "stats/snapshot_line.h"
#include "text/integers.h"
#include "text/leading_number.h"
#include "text/lines.h"
#include "text/runtime_error.h"

namespace tallyo {

void Snapshot::SaveSnapshot() {
  // A killed session's counters are taken from the recovery file where there is one.
  if (files_.Exists(state_.RecoveryFile())) {
    KeepForRecovery();
  }
  Write(state_.SnapshotFile(), Line());
  if (files_.Exists(state_.RecoveryFile())) {
    files_.Delete(state_.RecoveryFile());
  }
}

void Snapshot::KeepForRecovery(std::span<const DailyCount> counts) {
  recoverable_ = false;
  try {
    std::string text = Line();
    for (const HourTotal& total : dailyFiles_.TotalsWith(counts)) {
      text += LineOf(total) + "\r\n";
    }
    Write(state_.RecoveryFile(), text);
    recoverable_ = true;
  } catch (const RuntimeError&) {
    return;
  }
}

void Snapshot::KeepBeforeRemoval() {
  if (files_.Exists(state_.SnapshotFile()) || files_.Exists(state_.RecoveryFile())) {
    KeepForRecovery();
  }
}

void Snapshot::Recover() {
  try {
    if (!files_.Exists(state_.RecoveryFile())) {
      return;
    }
    const std::string content = files_.Read(state_.RecoveryFile());
    FinishWriting(content);
    Write(state_.SnapshotFile(), OfListedLinks(FirstLine(content)) + "\r\n");
    files_.Delete(state_.RecoveryFile());
  } catch (const RuntimeError&) {
    return;
  }
}

// Without the entries of links that were removed before the session was killed, which would put the
// counters behind them into the wrong rows.
std::string Snapshot::OfListedLinks(std::string_view line) const {
  if (form_.Combo1.Count() == 0) {
    return std::string(line);  // where the links cannot be read, nobody knows
  }
  std::string listed;
  for (std::size_t comma = 0; (comma = line.find(',')) != std::string_view::npos;) {
    const std::string name(line.substr(0, std::min(line.find('='), comma)));
    if (form_.Combo1.Find(name) < form_.Combo1.Count()) {
      listed += line.substr(0, comma + 1);
    }
    line.remove_prefix(comma + 1);
  }
  return listed;
}

// The hits that were being written when the session was killed.
void Snapshot::FinishWriting(std::string_view content) {
  Lines lines(content);
  static_cast<void>(lines.Next());  // the counters
  while (const std::optional<std::string_view> line = lines.Next()) {
    if (const std::optional<HourTotal> total = HourTotalOf(*line)) {
      dailyFiles_.BringTo(*total);
    }
  }
}

std::string Snapshot::Line() const {
  std::string line;
  for (int row = 1; row <= form_.ListView1.RowCount(); ++row) {
    line += form_.ListView1.RowText(row);
    line += '=';
    line += form_.ListView1.Value(row, 1);
    line += ',';
  }
  return line + "\r\n";
}

void Snapshot::Write(const std::filesystem::path& file, std::string_view content) {
  files_.Replace(file, content, state_.DataFolder() / "LastRead.tmp");
}

void Snapshot::LoadSnapshot() {
  if (form_.Combo1.Count() == 0) {
    return;
  }
  try {
    Load();
  } catch (const RuntimeError&) {
    return;
  }
}

void Snapshot::Load() {
  const std::string content = files_.Read(
      files_.Exists(state_.RecoveryFile()) ? state_.RecoveryFile() : state_.SnapshotFile());
  SnapshotLine line(FirstLine(content));
  const LinkIndex& links = links_.Index();
  LinkFields fields;
  int row = 1;
  while (const std::optional<SnapshotEntry> entry = line.Next()) {
    links.Find(fields, entry->name, FindBy::FriendlyName);
    form_.ListView1.SetRowText(row, std::string(entry->name));
    form_.ListView1.SetValue(row, 1, std::to_string(entry->counter));
    form_.ListView1.SetValue(row, 3, fields[linkfield::kLinkPath]);
    ++row;
  }
}

void Snapshot::ApplySnapshot() {
  std::vector<DailyCount> counts;
  bool read = false;
  try {
    settled_ = files_.Exists(state_.SnapshotFile()) &&
               (settled_ || Plan(counts, settings_.IsOn(names::kCountOnce, countOnce_)));
    read = true;
  } catch (const RuntimeError&) {
    read = false;  // what was planned until then is written
  }
  KeepForRecovery(counts);
  dailyFiles_.WriteInTurn(counts);
  try {
    if (settled_ && recoverable_) {
      files_.Delete(state_.SnapshotFile());
      settled_ = false;
    }
    if (read) {
      written_.clear();
    }
  } catch (const RuntimeError&) {
    return;
  }
}

bool Snapshot::Plan(std::vector<DailyCount>& counts, bool countOnce) {
  const std::string content = files_.Read(state_.SnapshotFile());
  SnapshotLine line(FirstLine(content));
  do {
    const std::optional<SnapshotEntry> entry = line.Next();
    if (!entry) {
      return false;
    }
    const std::string name(entry->name);
    if (!countOnce || !written_.contains(name)) {
      Settle(name, entry->counter, counts);
    }
  } while (!line.UsedUp());
  return true;
}

// Measures the first row of a name that has not fallen below its counter of the last session.
void Snapshot::Settle(const std::string& name, std::int16_t value,
                      std::vector<DailyCount>& counts) const {
  for (const int row : form_.ListView1.RowsNamed(name)) {
    const double counter = StrictNumber(form_.ListView1.Value(row, 1));
    if (counter > value) {
      counts.push_back(dailyFiles_.CountNow(ToInt16(counter - value), name));
      return;
    }
    if (counter == value) {
      return;
    }
  }
}

}  // namespace tallyo
