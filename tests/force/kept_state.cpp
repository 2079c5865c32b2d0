#include "tests/force/kept_state.h"

#include <sqlite3.h>

#include <fstream>
#include <iterator>
#include <memory>
#include <regex>

namespace tallyo::force {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSettingsKey = R"(Software\Quillmere\Tallyo)";
constexpr const char* kMonitorFilesKey = R"(Software\Quillmere\Tallyo\MonitorFiles\)";

std::string BytesOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

struct StoredText {
  std::string key;
  std::string name;
  std::string text;
};

std::string ColumnText(sqlite3_stmt* row, int column) {
  const auto* bytes = static_cast<const char*>(sqlite3_column_blob(row, column));
  return {bytes == nullptr ? "" : bytes,
          static_cast<std::size_t>(sqlite3_column_bytes(row, column))};
}

// The rows of three columns that a statement yields; an error is a fault.
std::vector<StoredText> Rows(sqlite3* database, const char* sql, KeptState& state) {
  sqlite3_stmt* raw = nullptr;
  sqlite3_prepare_v2(database, sql, -1, &raw, nullptr);
  const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement(raw, &sqlite3_finalize);
  std::vector<StoredText> rows;
  int result = SQLITE_ERROR;
  while (raw != nullptr && (result = sqlite3_step(raw)) == SQLITE_ROW) {
    rows.push_back({ColumnText(raw, 0), ColumnText(raw, 1), ColumnText(raw, 2)});
  }
  if (result != SQLITE_DONE)
    state.faults.push_back(std::string("store: ") + sqlite3_errmsg(database));
  return rows;
}

void TakeValue(const StoredText& value, KeptState& state) {
  const std::string monitorFiles = kMonitorFilesKey;
  if (value.text.empty() || value.text.back() != '\0') {
    state.faults.push_back("the value " + value.name + " is not whole");
    return;
  }
  const std::string text = value.text.substr(0, value.text.size() - 1);
  if (value.key == kSettingsKey) {
    state.settings[value.name] = text;
  } else if (value.key.starts_with(monitorFiles)) {
    const std::string number = std::to_string(state.links.size() + 1);
    const std::string expected = (number.size() < 2 ? "0" : "") + number;
    if (value.key != monitorFiles + expected || value.name != expected ||
        FieldsOf(text).size() != 4) {
      state.faults.push_back("record " + expected + " is " + value.key + "=" + text);
    }
    state.links.push_back(text);
  }
}

// The copy is opened as a database is after a power cut: the file and its log.
void ReadStore(const fs::path& appDir, const fs::path& scratch, KeptState& state) {
  const fs::path copy = scratch / "settings.db";
  for (const char* ending : {"", "-wal"}) {
    const fs::path from = appDir / (std::string("settings.db") + ending);
    fs::remove(copy.string() + ending);
    if (fs::exists(from)) fs::copy_file(from, copy.string() + ending);
  }
  fs::remove(copy.string() + "-shm");
  if (!fs::exists(copy) || fs::file_size(copy) == 0) return;
  sqlite3* raw = nullptr;
  sqlite3_open(copy.c_str(), &raw);
  const std::unique_ptr<sqlite3, int (*)(sqlite3*)> database(raw, &sqlite3_close);
  for (const StoredText& row :
       Rows(raw, "SELECT integrity_check, '', '' FROM pragma_integrity_check", state)) {
    if (row.key != "ok") state.faults.push_back("store: " + row.key);
  }
  if (Rows(raw, "SELECT name, '', '' FROM sqlite_schema", state).empty()) return;
  for (const StoredText& value : Rows(
           raw, "SELECT path, name, data FROM \"values\" JOIN keys ON id = key ORDER BY path, name",
           state)) {
    TakeValue(value, state);
  }
}

void ReadDailyFile(const fs::path& file, KeptState& state) {
  static const std::regex line(R"((0[1-9]|[12]\d|3[01])([01]\d|2[0-3])([1-9]\d*))");
  std::map<std::string, std::int64_t>& hours = state.hours[file.filename()];
  const std::string text = BytesOf(file);
  std::size_t begin = 0;
  for (std::size_t end = 0; (end = text.find("\r\n", begin)) != std::string::npos;
       begin = end + 2) {
    const std::string read = text.substr(begin, end - begin);
    if (!std::regex_match(read, line) || hours.contains(read.substr(0, 4))) {
      state.faults.push_back(file.filename().string() + " has the line " + read);
      continue;
    }
    hours[read.substr(0, 4)] = std::stoll(read.substr(4));
  }
  if (begin != text.size()) state.faults.push_back(file.filename().string() + " has no last end");
}

// One line of "name=counter," entries; what stands below it is the program's own.
void ReadSnapshot(const fs::path& file, KeptState& state) {
  static const std::regex line(R"(([^=,\r\n]+=\d*,)*)");
  const std::string text = BytesOf(file);
  const std::size_t end = text.find("\r\n");
  if (end == std::string::npos || !text.ends_with("\r\n") ||
      !std::regex_match(text.substr(0, end), line)) {
    state.faults.push_back(file.filename().string() + " is not whole: " + text);
  }
}

}  // namespace

std::int64_t KeptState::HitsOf(const std::string& name) const {
  std::int64_t sum = 0;
  for (const auto& [file, byHour] : hours) {
    if (file.substr(0, file.rfind('-')) != name) continue;
    for (const auto& [hour, hits] : byHour) sum += hits;
  }
  return sum;
}

std::string KeptState::LostSince(const KeptState& earlier) const {
  std::string lost;
  for (const auto& [file, byHour] : earlier.hours) {
    const auto here = hours.find(file);
    for (const auto& [hour, hits] : byHour) {
      const auto now = here == hours.end() ? byHour.end() : here->second.find(hour);
      const bool kept = here != hours.end() && now != here->second.end() && now->second >= hits;
      if (!kept) lost += file + " " + hour + " ";
    }
  }
  return lost;
}

std::vector<std::string> FieldsOf(const std::string& record) {
  std::vector<std::string> fields{""};
  for (const char byte : record) {
    if (byte == ',') {
      fields.emplace_back();
    } else {
      fields.back() += byte;
    }
  }
  return fields;
}

KeptState ReadKept(const fs::path& appDir, const fs::path& scratch) {
  KeptState state;
  ReadStore(appDir, scratch, state);
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(appDir)) {
    const fs::path& file = entry.path();
    const std::string name = file.filename();
    const std::string folder = file.parent_path().filename();
    if (!entry.is_regular_file()) continue;
    if (folder.starts_with("20") && name.rfind('-') + 4 == name.size()) ReadDailyFile(file, state);
    if (name == "LastRead.dat" || name == "LastRead.now") ReadSnapshot(file, state);
    if (name.ends_with(".export")) state.exports[name] = BytesOf(file);
  }
  return state;
}

}  // namespace tallyo::force
