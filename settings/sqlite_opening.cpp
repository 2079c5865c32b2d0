#include "settings/sqlite_opening.h"

#include <fcntl.h>
#include <sqlite3.h>

#include <string_view>
#include <system_error>
#include <utility>

#include "platform/file_descriptor.h"
#include "platform/shared_folder.h"
#include "settings/sqlite_copy.h"
#include "settings/sqlite_schema.h"
#include "text/runtime_error.h"

namespace tallyo {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kFileMode = 0644;

// The file is nothing that this program may read, let alone write.
class Unusable : public RuntimeError {
 public:
  using RuntimeError::RuntimeError;
};

fs::path Beside(const fs::path& file, const char* ending) {
  fs::path path = file;
  path += ending;
  return path;
}

bool HasContent(const fs::path& file) {
  std::error_code failure;
  return fs::file_size(file, failure) > 0 && !failure;
}

// Whether there is a file that may be a settings store; throws for one that cannot.
bool IsThere(const fs::path& file) {
  std::error_code failure;
  const fs::file_status status = fs::status(file, failure);
  if (status.type() == fs::file_type::not_found) {
    return false;
  }
  if (failure) {
    throw Unusable("cannot be opened: " + failure.message());
  }
  if (!fs::is_regular_file(status)) {
    throw Unusable("is no file");
  }
  return true;
}

// The state of a database that may be used; throws for one that may not.
SchemaState UsableState(sqlite3& database) {
  const SchemaState state = StateOfSchema(database);
  if (state == SchemaState::Newer) {
    throw Unusable("was written by a newer version of this program");
  }
  if (state == SchemaState::Foreign) {
    throw Unusable("is no settings store");
  }
  return state;
}

std::string UriOf(const fs::path& file) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string uri = "file://";
  for (const char c : file.native()) {
    if (c == '/') {
      uri += c;
      continue;
    }
    const auto byte = static_cast<unsigned char>(c);
    uri += '%';
    uri += kDigits[byte >> 4U];
    uri += kDigits[byte & 0xFU];
  }
  return uri;
}

SqliteConnection ConnectForReading(const fs::path& file) {
  const fs::path log = Beside(file, "-wal");
  const fs::path index = Beside(file, "-shm");
  std::error_code ignored;
  if (fs::exists(log, ignored) && fs::exists(index, ignored)) {
    // Another program may have the store open. With both files there SQLite makes no new ones.
    return ConnectSqlite(file.string(), SQLITE_OPEN_READONLY);
  }
  if (HasContent(log)) {
    // Left by a program that was killed. SQLite would make the index file, and leave it.
    return CopyToMemory(file, log);
  }
  // Nobody writes now. SQLite would make both files, and leave them.
  return ConnectSqlite(UriOf(file) + "?immutable=1", SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
}

SqliteConnection OpenForReading(const fs::path& file) {
  SqliteConnection connection = ConnectForReading(file);
  if (UsableState(*connection) == SchemaState::Empty) {
    return nullptr;
  }
  return connection;
}

// Takes the right to write for a moment. Another program that writes just now proves as much.
void CheckWritable(sqlite3& database) {
  const int result =
      sqlite3_exec(&database, "BEGIN IMMEDIATE; ROLLBACK", nullptr, nullptr, nullptr);
  if (result != SQLITE_OK && result != SQLITE_BUSY) {
    throw RuntimeError(sqlite3_errmsg(&database));
  }
}

void MakeTables(sqlite3& database) {
  ExecuteSqlite(database, "BEGIN IMMEDIATE");
  if (UsableState(database) == SchemaState::Empty) {  // else another program was faster
    CreateSchema(database);
  }
  ExecuteSqlite(database, "COMMIT");
}

// SQLite would make a file that its maker alone may write, and gives its other files the
// permissions of this one.
void MakeFileForItsFolder(const fs::path& file) {
  const FileDescriptor made(::open(file.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, kFileMode));
  if (made.IsOpen()) {
    ShareFile(made.Number(), file);
  }
}

SqliteConnection OpenForWriting(const fs::path& file) {
  MakeFileForItsFolder(file);
  SqliteConnection connection =
      ConnectSqlite(file.string(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  // Asked before the first read, which would make files beside a file that is read-only.
  if (sqlite3_db_readonly(connection.get(), "main") != 0) {
    throw RuntimeError("the file is read-only");
  }
  const SchemaState state = UsableState(*connection);
  // Where another program keeps the mode from changing, the store works in the old one.
  sqlite3_exec(connection.get(), "PRAGMA journal_mode = WAL", nullptr, nullptr, nullptr);
  ExecuteSqlite(*connection, "PRAGMA synchronous = FULL");
  if (state == SchemaState::Empty) {
    MakeTables(*connection);
  } else {
    CheckWritable(*connection);
  }
  return connection;
}

OpenedStore OpenOrFallBack(const fs::path& file, StoreAccess access) {
  const bool there = IsThere(file);
  std::string problem;
  if (access == StoreAccess::ReadWrite) {
    try {
      return {OpenForWriting(file), true, ""};
    } catch (const Unusable&) {
      throw;
    } catch (const RuntimeError& failure) {
      problem = std::string("cannot be written: ") + failure.what();
    }
  }
  return {there ? OpenForReading(file) : nullptr, false, problem};
}

}  // namespace

OpenedStore OpenSettingsDatabase(const fs::path& file, StoreAccess access) {
  OpenedStore store;
  try {
    if (file.native().find('\0') != std::string::npos) {
      throw Unusable("cannot be opened");
    }
    store = OpenOrFallBack(fs::absolute(file), access);
  } catch (const Unusable& failure) {
    store.problem = failure.what();
  } catch (const std::exception& failure) {
    store.problem = std::string("cannot be read: ") + failure.what();
  }
  if (!store.problem.empty()) {
    store.problem = "the settings store " + file.string() + " " + store.problem;
  }
  return store;
}

}  // namespace tallyo
