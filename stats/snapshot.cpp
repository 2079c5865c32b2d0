#include "stats/snapshot.h"

#include <optional>
#include <utility>

#include "settings/names.h"
#include "stats/snapshot_line.h"
#include "text/integers.h"
#include "text/leading_number.h"
#include "text/lines.h"
#include "text/runtime_error.h"

namespace tallyo {

void Snapshot::SaveSnapshot() {
  Write(state_.SnapshotFile(), Line());
  if (files_.Exists(state_.RecoveryFile())) {
    files_.Delete(state_.RecoveryFile());
  }
}

void Snapshot::KeepForRecovery() {
  try {
    Write(state_.RecoveryFile(), Line());
  } catch (const RuntimeError&) {
    return;
  }
}

void Snapshot::Recover() {
  try {
    if (!files_.Exists(state_.RecoveryFile())) {
      return;
    }
    if (!files_.Exists(state_.SnapshotFile())) {
      Write(state_.SnapshotFile(), files_.Read(state_.RecoveryFile()));
    }
    files_.Delete(state_.RecoveryFile());
  } catch (const RuntimeError&) {
    return;
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
      files_.Exists(state_.SnapshotFile()) ? state_.SnapshotFile() : state_.RecoveryFile());
  SnapshotLine line(FirstLine(content));
  LinkFields fields;
  int row = 1;
  while (const std::optional<SnapshotEntry> entry = line.Next()) {
    links_.FindMonitoredLink(fields, entry->name, FindBy::FriendlyName);
    form_.ListView1.SetRowText(row, std::string(entry->name));
    form_.ListView1.SetValue(row, 1, std::to_string(entry->counter));
    form_.ListView1.SetValue(row, 3, fields[linkfield::kLinkPath]);
    ++row;
  }
}

void Snapshot::ApplySnapshot() {
  try {
    if (files_.Exists(state_.SnapshotFile())) {
      Apply(settings_.IsOn(names::kCountOnce, countOnce_));
    }
    written_.clear();
  } catch (const RuntimeError&) {
    return;
  }
}

void Snapshot::Apply(bool countOnce) {
  const std::string content = files_.Read(state_.SnapshotFile());
  SnapshotLine line(FirstLine(content));
  do {
    const std::optional<SnapshotEntry> entry = line.Next();
    if (!entry) {
      return;
    }
    const std::string name(entry->name);
    if (!countOnce || !written_.contains(name)) {
      Settle(name, entry->counter);
    }
  } while (!line.UsedUp());
  files_.Delete(state_.SnapshotFile());
}

// Measures the first row of a name that has not fallen below its counter of the last session.
void Snapshot::Settle(const std::string& name, std::int16_t value) {
  for (const int row : form_.ListView1.RowsNamed(name)) {
    const double counter = StrictNumber(form_.ListView1.Value(row, 1));
    if (counter > value) {
      dailyFiles_.WriteDailyCount(ToInt16(counter - value), name);
      return;
    }
    if (counter == value) {
      return;
    }
  }
}

}  // namespace tallyo
