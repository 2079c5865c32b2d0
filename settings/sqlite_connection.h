#pragma once

#include <memory>
#include <string>

struct sqlite3;

namespace tallyo {

struct CloseSqlite {
  void operator()(sqlite3* database) const noexcept;
};

// Owns one open database; its statements must be gone before it.
using SqliteConnection = std::unique_ptr<sqlite3, CloseSqlite>;

// Opens a database file or, with SQLITE_OPEN_URI, the file of a URI, with the given SQLITE_OPEN
// flags, for use by one thread. Waits up to 5 s for another program's change to end. Throws
// RuntimeError with SQLite's reason.
[[nodiscard]] SqliteConnection ConnectSqlite(const std::string& name, int flags);

// Runs SQL without results. Throws RuntimeError with SQLite's reason.
void ExecuteSqlite(sqlite3& database, const char* sql);

}  // namespace tallyo
