#include "settings/sqlite_copy.h"

#include <sqlite3.h>

#include <cerrno>
#include <cstdlib>
#include <memory>
#include <string>
#include <system_error>

#include "text/runtime_error.h"

namespace tallyo {
namespace {

namespace fs = std::filesystem;

class WorkFolder {
 public:
  WorkFolder() {
    std::string pattern = (fs::temp_directory_path() / "tallyo-settings-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) {
      throw fs::filesystem_error("no work folder", pattern,
                                 std::error_code(errno, std::generic_category()));
    }
    path_ = pattern;
  }
  ~WorkFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  WorkFolder(const WorkFolder&) = delete;
  WorkFolder& operator=(const WorkFolder&) = delete;

  [[nodiscard]] const fs::path& Path() const { return path_; }

 private:
  fs::path path_;
};

struct FinishBackup {
  void operator()(sqlite3_backup* backup) const noexcept { sqlite3_backup_finish(backup); }
};

void CopyPages(sqlite3& from, sqlite3& to) {
  const std::unique_ptr<sqlite3_backup, FinishBackup> backup(
      sqlite3_backup_init(&to, "main", &from, "main"));
  constexpr int kAllPages = -1;
  if (!backup || sqlite3_backup_step(backup.get(), kAllPages) != SQLITE_DONE) {
    throw RuntimeError(sqlite3_errmsg(&to));
  }
}

}  // namespace

SqliteConnection CopyToMemory(const fs::path& file, const fs::path& log) {
  try {
    const WorkFolder folder;
    const fs::path copy = folder.Path() / "copy";
    fs::copy_file(file, copy);
    fs::copy_file(log, folder.Path() / "copy-wal");
    fs::permissions(copy, fs::perms::owner_write, fs::perm_options::add);
    fs::permissions(folder.Path() / "copy-wal", fs::perms::owner_write, fs::perm_options::add);
    const SqliteConnection source = ConnectSqlite(copy.string(), SQLITE_OPEN_READWRITE);
    SqliteConnection memory = ConnectSqlite(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    CopyPages(*source, *memory);
    return memory;
  } catch (const fs::filesystem_error& failure) {
    throw RuntimeError(failure.code().message());
  }
}

}  // namespace tallyo
