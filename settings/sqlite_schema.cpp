#include "settings/sqlite_schema.h"

#include <sqlite3.h>

#include <cstdint>

#include "settings/sqlite_connection.h"
#include "settings/sqlite_statement.h"
#include "text/runtime_error.h"

namespace tallyo {
namespace {

constexpr std::int64_t kApplicationId = 0x54616C79;  // "Taly"
constexpr std::int64_t kVersion = 1;

// Holds the two constants in decimal.
constexpr const char* kSchema = R"(
  CREATE TABLE keys (
    id INTEGER PRIMARY KEY,
    hive INTEGER NOT NULL,
    path TEXT NOT NULL COLLATE NOCASE,
    UNIQUE (hive, path)
  );
  CREATE TABLE "values" (
    key INTEGER NOT NULL REFERENCES keys (id),
    name TEXT NOT NULL COLLATE NOCASE,
    type INTEGER NOT NULL,
    data BLOB NOT NULL,
    PRIMARY KEY (key, name)
  ) WITHOUT ROWID;
  PRAGMA application_id = 1415670905;
  PRAGMA user_version = 1;
)";
static_assert(kApplicationId == 1415670905 && kVersion == 1);

std::int64_t NumberOf(sqlite3& database, const char* sql) {
  const SqliteStatement statement(database, sql);
  SqliteRun run(statement);
  if (!run.NextRow()) {
    throw RuntimeError(sqlite3_errmsg(&database));
  }
  return run.Number(0);
}

}  // namespace

SchemaState StateOfSchema(sqlite3& database) {
  // Read first: where another program makes the tables meanwhile, the numbers show that they are
  // ours.
  const std::int64_t tables = NumberOf(database, "SELECT count(*) FROM sqlite_master");
  const std::int64_t application = NumberOf(database, "PRAGMA application_id");
  const std::int64_t version = NumberOf(database, "PRAGMA user_version");
  if (application == kApplicationId) {
    return version > kVersion ? SchemaState::Newer : SchemaState::Current;
  }
  const bool empty = application == 0 && version == 0 && tables == 0;
  return empty ? SchemaState::Empty : SchemaState::Foreign;
}

void CreateSchema(sqlite3& database) { ExecuteSqlite(database, kSchema); }

}  // namespace tallyo
