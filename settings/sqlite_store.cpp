#include "settings/sqlite_store.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstddef>
#include <utility>

#include "settings/key_range.h"
#include "settings/sqlite_queries.h"
#include "settings/sqlite_statement.h"
#include "text/runtime_error.h"

namespace tallyo {
namespace {

std::string_view WithoutLastSeparator(std::string_view keyPath) {
  if (keyPath.ends_with('\\')) {
    keyPath.remove_suffix(1);
  }
  return keyPath;
}

// SQLite compares texts without regard to case only up to a NUL.
bool HoldsNul(std::string_view text) { return text.find('\0') != std::string_view::npos; }

std::int64_t NumberOf(Hive hive) { return static_cast<std::int64_t>(hive); }

}  // namespace

SqliteStore::SqliteStore(const std::filesystem::path& file, StoreAccess access) {
  OpenedStore opened = OpenSettingsDatabase(file, access);
  problem_ = std::move(opened.problem);
  if (!opened.connection) {
    return;
  }
  try {
    queries_ = std::make_unique<SqliteQueries>(*opened.connection);
    connection_ = std::move(opened.connection);
    writable_ = opened.writable;
  } catch (const RuntimeError& failure) {
    problem_ = "the settings store " + file.string() + " is damaged: " + failure.what();
  }
}

SqliteStore::~SqliteStore() = default;

void SqliteStore::CreateKey(Hive hive, std::string_view keyPath) {
  const std::string_view path = WithoutLastSeparator(keyPath);
  if (MayWrite() && !HoldsNul(path) && !KeyExists(hive, path)) {
    AsOneChange([&] { InsertWithParents(hive, path); });
  }
}

// Each key keeps the spelling it was first written with, also in the paths of new keys below it.
void SqliteStore::InsertWithParents(Hive hive, std::string_view path) {
  watched_.NoteChange(hive, path);
  std::string spelled;
  for (std::size_t start = 0; start <= path.size();) {
    const std::size_t end = std::min(path.find('\\', start), path.size());
    spelled.append(start == 0 ? "" : "\\").append(path.substr(start, end - start));
    start = end + 1;
    if (const std::optional<std::string> known = SpellingOf(hive, spelled)) {
      spelled = *known;
    } else {
      SqliteRun run(queries_->insertKey);
      run.BindNumber(NumberOf(hive)).BindText(spelled);
      Change(run);
    }
  }
}

std::optional<std::string> SqliteStore::SpellingOf(Hive hive, std::string_view path) {
  if (!queries_ || HoldsNul(path)) {
    return std::nullopt;
  }
  SqliteRun run(queries_->findKey);
  if (!run.BindNumber(NumberOf(hive)).BindText(path).NextRow()) {
    NoteIfFailed(run);
    return std::nullopt;
  }
  return run.Bytes(0);
}

bool SqliteStore::KeyExists(Hive hive, std::string_view keyPath) {
  const std::string_view path = WithoutLastSeparator(keyPath);
  return path.empty() || SpellingOf(hive, path).has_value();
}

std::optional<TypedValue> SqliteStore::Read(Hive hive, std::string_view keyPath,
                                            std::string_view valueName) {
  const std::string_view path = WithoutLastSeparator(keyPath);
  if (!queries_ || HoldsNul(path) || HoldsNul(valueName)) {
    return std::nullopt;
  }
  SqliteRun run(queries_->readValue);
  if (!run.BindNumber(NumberOf(hive)).BindText(path).BindText(valueName).NextRow()) {
    NoteIfFailed(run);
    return std::nullopt;
  }
  return TypedValue{static_cast<std::uint32_t>(run.Number(0)), run.Bytes(1)};
}

bool SqliteStore::Write(Hive hive, std::string_view keyPath, std::string_view valueName,
                        const TypedValue& value) {
  const std::string_view path = WithoutLastSeparator(keyPath);
  if (!MayWrite() || HoldsNul(path) || HoldsNul(valueName)) {
    return false;
  }
  if (path.empty() && !SpellingOf(hive, path)) {
    InsertWithParents(hive, path);
  }
  watched_.NoteChange(hive, path);
  SqliteRun run(queries_->writeValue);
  run.BindText(valueName).BindNumber(value.type).BindBlob(value.data);
  run.BindNumber(NumberOf(hive)).BindText(path);
  return Change(run);
}

void SqliteStore::DeleteKey(Hive hive, std::string_view keyPath) {
  const std::string_view path = WithoutLastSeparator(keyPath);
  if (path.empty() || !MayWrite() || HoldsNul(path)) {
    return;
  }
  watched_.NoteTreeChange(hive, path);
  AsOneChange([&] {
    const KeyRange range(path);
    for (const SqliteStatement* statement :
         {&queries_->deleteTreeValues, &queries_->deleteTreeKeys}) {
      if (MayWrite()) {
        SqliteRun run(*statement);
        range.Bind(run, hive);
        Change(run);
      }
    }
  });
}

void SqliteStore::DeleteValue(Hive hive, std::string_view keyPath, std::string_view valueName) {
  const std::string_view path = WithoutLastSeparator(keyPath);
  if (MayWrite() && !HoldsNul(path) && !HoldsNul(valueName)) {
    watched_.NoteChange(hive, path);
    SqliteRun run(queries_->deleteValue);
    run.BindNumber(NumberOf(hive)).BindText(path).BindText(valueName);
    Change(run);
  }
}

std::vector<StoredValue> SqliteStore::ReadTree(Hive hive, std::string_view keyPath) {
  const std::string_view path = WithoutLastSeparator(keyPath);
  std::vector<StoredValue> values;
  if (!queries_ || HoldsNul(path)) {
    return values;
  }
  const KeyRange range(path);
  SqliteRun run(queries_->readTree);
  range.Bind(run, hive);
  while (run.NextRow()) {
    values.push_back(
        {run.Bytes(0), run.Bytes(1), {static_cast<std::uint32_t>(run.Number(2)), run.Bytes(3)}});
  }
  if (run.Failed()) {
    NoteIfFailed(run);
    values.clear();
  }
  return values;
}

StoreStamp SqliteStore::Stamp() {
  if (!queries_) {
    return {};
  }
  SqliteRun run(queries_->dataVersion);
  if (!run.NextRow()) {
    return {0, ++ownChanges_};  // who knows
  }
  return {run.Number(0), ownChanges_};
}

StoreStamp SqliteStore::StampBelow(Hive hive, std::string_view keyPath) {
  StoreStamp stamp = Stamp();
  if (stamp.others != 0) {
    stamp.own = watched_.ChangesBelow(hive, WithoutLastSeparator(keyPath));
  }
  return stamp;
}

// What could not be read is not missing: no change may be built on it, and no later reader may rely
// on it.
void SqliteStore::NoteIfFailed(const SqliteRun& read) {
  if (read.Failed()) {
    changeLost_ = inChange_;
    NoteLostChange();
  }
}

// Runs one changing statement; whether it changed anything. A failure loses the whole change that
// the statement is part of, since SQLite may have undone it.
bool SqliteStore::Change(SqliteRun& run) {
  const bool done = MayWrite() && run.Finish();
  if (!done) {
    changeLost_ = inChange_;
    NoteLostChange();
    return false;
  }
  const bool changed = sqlite3_changes(connection_.get()) > 0;
  ownChanges_ += changed ? 1 : 0;
  return changed;
}

void SqliteStore::AsOneChange(const std::function<void()>& work) {
  if (inChange_ || !queries_) {
    work();
    return;
  }
  Begin();
  try {
    work();
  } catch (...) {
    End(false);
    throw;
  }
  End(true);
}

// Without the right to write, the work still sees one state of the store.
void SqliteStore::Begin() {
  inChange_ = true;
  changeLost_ = !writable_ || !SqliteRun(queries_->beginWriting).Finish();
  if (changeLost_) {
    static_cast<void>(SqliteRun(queries_->beginReading).Finish());
  }
}

void SqliteStore::End(bool keep) {
  const bool kept = keep && !changeLost_ && SqliteRun(queries_->commit).Finish();
  if (!kept && sqlite3_get_autocommit(connection_.get()) == 0) {
    static_cast<void>(SqliteRun(queries_->rollback).Finish());
  }
  if (!kept && writable_) {
    NoteLostChange();
  }
  inChange_ = false;
  changeLost_ = false;
}

}  // namespace tallyo
