#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "settings/settings_store.h"
#include "settings/sqlite_opening.h"
#include "settings/watched_keys.h"

namespace tallyo {

struct SqliteQueries;
class SqliteRun;

// The settings store in one SQLite file, which several programs may have open. A key path or value
// name with a NUL byte exists nowhere and cannot be written. The hive itself always exists and
// cannot be deleted.
//
// A change that cannot begin (no right to write, or another program has held the store for over
// 5 s) or cannot be completed (a full disk, a value that cannot be read) is lost as a whole: its
// work still runs and reads, and every Write in it from the failure on returns false.
//
// Read-only, a store that no program had open shows what it held when it was opened.
class SqliteStore final : public SettingsStore {
 public:
  SqliteStore(const std::filesystem::path& file, StoreAccess access);
  ~SqliteStore() override;
  SqliteStore(const SqliteStore&) = delete;
  SqliteStore& operator=(const SqliteStore&) = delete;

  // Why the store cannot be opened, or not be written, as one plain line for a person; "" where it
  // is open as asked. A missing file is no problem for a store that is only read.
  [[nodiscard]] const std::string& Problem() const { return problem_; }

  void CreateKey(Hive hive, std::string_view keyPath) override;
  [[nodiscard]] bool KeyExists(Hive hive, std::string_view keyPath) override;
  [[nodiscard]] std::optional<TypedValue> Read(Hive hive, std::string_view keyPath,
                                               std::string_view valueName) override;
  bool Write(Hive hive, std::string_view keyPath, std::string_view valueName,
             const TypedValue& value) override;
  void DeleteKey(Hive hive, std::string_view keyPath) override;
  void DeleteValue(Hive hive, std::string_view keyPath, std::string_view valueName) override;
  [[nodiscard]] std::vector<StoredValue> ReadTree(Hive hive, std::string_view keyPath) override;
  [[nodiscard]] bool Readable() const override { return queries_ != nullptr || problem_.empty(); }
  [[nodiscard]] StoreStamp Stamp() override;
  [[nodiscard]] StoreStamp StampBelow(Hive hive, std::string_view keyPath) override;
  void AsOneChange(const std::function<void()>& work) override;

 private:
  [[nodiscard]] bool MayWrite() const { return writable_ && !changeLost_; }
  [[nodiscard]] std::optional<std::string> SpellingOf(Hive hive, std::string_view path);
  void InsertWithParents(Hive hive, std::string_view path);
  bool Change(SqliteRun& run);
  void NoteLostChange() {
    ++ownChanges_;
    watched_.NoteAnyChange();
  }
  void NoteIfFailed(const SqliteRun& read);
  void Begin();
  void End(bool keep);

  SqliteConnection connection_;
  std::unique_ptr<SqliteQueries> queries_;  // null: nothing to read
  std::string problem_;
  bool writable_ = false;
  bool inChange_ = false;
  bool changeLost_ = false;
  std::int64_t ownChanges_ = 0;
  WatchedKeys watched_;
};

}  // namespace tallyo
