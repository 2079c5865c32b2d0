#include "settings/sqlite_connection.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <string_view>
#include <thread>

#include "text/runtime_error.h"

namespace tallyo {
namespace {

// How long another program that writes is waited for: looked for a gap between its changes every
// millisecond. A program that waits longer each time, as SQLite would, may never meet one.
constexpr int kMostPauses = 5'000;

int PauseForOthers(void* /*context*/, int pausesUntilNow) {
  if (pausesUntilNow >= kMostPauses) {
    return 0;
  }
  std::this_thread::sleep_for(std::chrono::milliseconds(1));
  return 1;
}

// SQLite takes a file of a few bytes for an empty database, whatever they are. The file is read
// through SQLite, since closing it here would drop the locks of every connection to it.
bool StartsAsDatabase(sqlite3& database) {
  constexpr std::string_view kMagic("SQLite format 3\0", 16);
  sqlite3_file* file = nullptr;
  sqlite3_file_control(&database, "main", SQLITE_FCNTL_FILE_POINTER, &file);
  if (file == nullptr || file->pMethods == nullptr) {
    return true;  // in memory
  }
  std::array<char, kMagic.size()> start{};
  const int result = file->pMethods->xRead(file, start.data(), kMagic.size(), 0);
  if (result == SQLITE_IOERR_SHORT_READ) {  // zeros fill what is missing
    return std::all_of(start.begin(), start.end(), [](char c) { return c == 0; });
  }
  return result == SQLITE_OK && std::string_view(start.data(), start.size()) == kMagic;
}

}  // namespace

void CloseSqlite::operator()(sqlite3* database) const noexcept { sqlite3_close(database); }

SqliteConnection ConnectSqlite(const std::string& name, int flags) {
  sqlite3* database = nullptr;
  const int result = sqlite3_open_v2(name.c_str(), &database, flags | SQLITE_OPEN_NOMUTEX, nullptr);
  SqliteConnection connection(database);  // there even where opening failed
  if (result != SQLITE_OK) {
    throw RuntimeError(sqlite3_errstr(result));
  }
  if (!StartsAsDatabase(*database)) {
    throw RuntimeError(sqlite3_errstr(SQLITE_NOTADB));
  }
  sqlite3_busy_handler(database, PauseForOthers, nullptr);
  return connection;
}

void ExecuteSqlite(sqlite3& database, const char* sql) {
  if (sqlite3_exec(&database, sql, nullptr, nullptr, nullptr) != SQLITE_OK) {
    throw RuntimeError(sqlite3_errmsg(&database));
  }
}

}  // namespace tallyo
