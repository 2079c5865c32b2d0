#include "tests/fuzz/plain_session.h"

#include <cmath>
#include <optional>

#include "tests/fuzz/plain_daily.h"
#include "tests/fuzz/plain_text.h"

namespace tallyo::fuzz {
namespace {

constexpr const char* kSnapshot = "/a/Data/LastRead.dat";

std::string TwoDigits(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

// The next entry of a snapshot, taken off the line. Nothing where its counter or its "=" is
// missing.
struct Entry {
  std::string name;
  long counter = 0;
};

std::optional<Entry> TakeEntry(std::string& line) {
  const std::size_t comma = PlainPosition(line, ",");
  const std::string entry = PlainMid(line, 1, comma - 1);
  line = PlainMid(line, comma + 1);
  const std::size_t equals = PlainPosition(entry, "=");
  const std::optional<long> counter = PlainInt16(PlainNumber(PlainMid(entry, equals + 1)));
  if (equals == 0 || !counter) {
    return std::nullopt;
  }
  return Entry{PlainMid(entry, 1, equals - 1), *counter};
}

}  // namespace

std::string PlainSession::ClockText(int seconds) {
  return TwoDigits(seconds / 3600) + ":" + TwoDigits(seconds / 60 % 60) + ":" +
         TwoDigits(seconds % 60);
}

void PlainSession::Start() {
  PlainFields fields;
  for (const std::string& name : links_.Names()) {
    if (!links_.Find(fields, name, 1).found) {
      break;
    }
    rows_.push_back({fields[1], "", "", fields[3]});
  }
  if (!links_.Names().empty() && files.contains(kSnapshot)) {
    LoadSnapshot();
  }
}

void PlainSession::LoadSnapshot() {
  const std::vector<std::string> lines = PlainLines(files.at(kSnapshot));
  if (lines.empty()) {
    return;
  }
  std::string line = lines.front();
  PlainFields fields;
  for (std::size_t i = 0; PlainPosition(line, ",") != 0; ++i) {
    const std::optional<Entry> entry = TakeEntry(line);
    if (!entry || links_.Find(fields, entry->name, 1).failed || i >= rows_.size()) {
      return;
    }
    rows_[i].name = entry->name;
    rows_[i].counter = std::to_string(entry->counter);
    rows_[i].path = fields[3];
  }
}

void PlainSession::Refresh(const std::string& reply, int secondsSinceMidnight) {
  now_ = secondsSinceMidnight;
  if (links_.Names().empty()) {
    return;
  }
  label8_ = "Request Time out";
  if (!Read(reply)) {
    return;
  }
  if (ApplySnapshot()) {
    written_.clear();
  }
  label8_ = "Data acquired at " + ClockText(now_);
  const auto now = static_cast<float>(now_);
  if (now - settings_.lastCheckTime >= 60) {
    settings_.lastCheckTime = now;
  }
}

bool PlainSession::Read(std::string reply) {
  std::string oldCounter;
  PlainFields fields;
  while (const std::size_t blank = PlainPosition(reply, " ")) {
    const std::string token = PlainMid(reply, 1, blank - 1);
    reply = PlainMid(reply, blank + 1);
    const std::size_t mark = PlainPosition(token, "<P>");
    if (mark == 0) {
      return false;
    }
    const std::string counter = PlainMid(token, mark + 3);
    if (counter.empty()) {
      return true;
    }
    const std::size_t lineFeed = PlainPosition(reply, "\n");
    if (lineFeed == 0) {
      return false;
    }
    const std::string key = PlainMid(reply, 1, lineFeed - 1);
    reply = PlainMid(reply, lineFeed + 1);
    const PlainLookup link = links_.Find(fields, key, 2);
    if (link.failed || (link.found && (!Take(fields, counter, oldCounter) ||
                                       !Book(fields[1], counter, oldCounter)))) {
      return false;
    }
  }
  return true;
}

bool PlainSession::Take(const PlainFields& fields, const std::string& counter,
                        std::string& oldCounter) {
  for (Row& row : rows_) {
    if (row.name == fields[1]) {
      oldCounter = row.counter;
      row.counter = counter;
      const std::optional<std::string> change =
          PlainDecimal(PlainNumber(counter) - PlainNumber(oldCounter));
      row.change = change.value_or(row.change);
      return change.has_value();
    }
  }
  rows_.push_back({fields[1], PlainDecimal(PlainNumber(counter)).value(), "", fields[3]});
  return true;
}

bool PlainSession::Book(const std::string& name, const std::string& counter,
                        const std::string& oldCounter) {
  const double hours = PlainNumber(settings_.interval);
  const float interval = static_cast<float>(hours) * 3600.0F;
  if (std::fabs(hours) > 0x1p127 || std::isinf(interval)) {
    return false;
  }
  const double since = static_cast<double>(now_) - static_cast<double>(settings_.lastCheckTime);
  if (since < static_cast<double>(interval) && settings_.lastCheckTime != 0) {
    return true;
  }
  const std::optional<long> growth = PlainInt16(PlainNumber(counter) - PlainNumber(oldCounter));
  if (growth && *growth > 0 && AddHits(name, *growth)) {
    written_.insert(name);
  }
  return growth.has_value();
}

bool PlainSession::ApplySnapshot() {
  if (!files.contains(kSnapshot)) {
    return true;
  }
  const std::vector<std::string> lines = PlainLines(files.at(kSnapshot));
  if (lines.empty()) {
    return false;
  }
  std::string line = lines.front();
  do {
    if (PlainPosition(line, ",") == 0) {
      return true;
    }
    const std::optional<Entry> entry = TakeEntry(line);
    if (!entry) {
      return false;
    }
    const bool passedOver = settings_.countOnce && written_.contains(entry->name);
    if (!passedOver && !Settle(entry->name, entry->counter)) {
      return false;
    }
  } while (!line.empty());
  files.erase(kSnapshot);
  return true;
}

bool PlainSession::Settle(const std::string& name, long value) {
  for (const Row& row : rows_) {
    if (row.name != name) {
      continue;
    }
    const std::optional<double> counter = PlainStrictNumber(row.counter);
    if (!counter) {
      return false;
    }
    if (*counter >= static_cast<double>(value)) {
      const std::optional<long> growth = PlainInt16(*counter - static_cast<double>(value));
      if (growth && *counter > static_cast<double>(value)) {
        AddHits(name, *growth);
      }
      return growth.has_value();
    }
  }
  return true;
}

bool PlainSession::AddHits(const std::string& name, long hits) {
  if (!PlainIsFileName(name + "-Jan")) {
    return false;
  }
  std::string& file = files["/a/Data/2026/" + name + "-Jan"];
  file = PlainDailyFile(file, "15" + TwoDigits(now_ / 3600), hits);
  return true;
}

std::string PlainSession::SnapshotText() const {
  std::string line;
  for (const Row& row : rows_) {
    line += row.name + "=" + row.counter + ",";
  }
  return line + "\r\n";
}

void PlainSession::Quit() { files[kSnapshot] = SnapshotText(); }

void PlainSession::NoteIn(Findings& findings) const {
  for (const Row& row : rows_) {
    findings.Note("row", row.name + "|" + row.counter + "|" + row.change + "|" + row.path);
  }
  for (const auto& [path, content] : files) {
    findings.Note(path, content);
  }
  findings.Note("label 8", label8_);
  findings.Note("last check", static_cast<double>(settings_.lastCheckTime));
}

}  // namespace tallyo::fuzz
