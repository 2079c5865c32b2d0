#include "service/schema.h"

#include <cstdint>
#include <string>

namespace tallyo::service {

namespace {

constexpr std::int64_t kApplicationId = 0x54537663;  // "TSvc"
constexpr std::int64_t kSchemaVersion = 1;

// Ids of links are never given twice, so that the counts of a removed link cannot reach another.
constexpr const char* kTables = R"(
CREATE TABLE accounts (
  id INTEGER PRIMARY KEY,
  name TEXT NOT NULL UNIQUE,
  company TEXT NOT NULL,
  max_links INTEGER NOT NULL CHECK (max_links BETWEEN 0 AND 32767),
  opened TEXT NOT NULL,
  good_through TEXT NOT NULL,
  banned INTEGER NOT NULL DEFAULT 0 CHECK (banned IN (0, 1))
) STRICT;
CREATE TABLE links (
  id INTEGER PRIMARY KEY AUTOINCREMENT,
  account_id INTEGER NOT NULL REFERENCES accounts (id) ON DELETE CASCADE,
  reference TEXT NOT NULL,
  url TEXT NOT NULL,
  hits INTEGER NOT NULL DEFAULT 0 CHECK (hits >= 0),
  UNIQUE (account_id, reference),
  UNIQUE (account_id, url)
) STRICT;
PRAGMA application_id = 0x54537663;
PRAGMA user_version = 1;
)";

bool HasTables(Database& database) {
  const std::int64_t application = database.Number("PRAGMA application_id");
  const std::int64_t version = database.Number("PRAGMA user_version");
  if (application == kApplicationId && version == kSchemaVersion) return true;
  if (application == kApplicationId) {
    throw DatabaseError("it was made by another version of tallyo-service");
  }
  if (application != 0 || database.Number("SELECT count(*) FROM sqlite_schema") != 0) {
    throw DatabaseError("it belongs to another program");
  }
  return false;
}

void Prepare(Database& database) {
  if (!HasTables(database)) {
    Transaction transaction(database, Transaction::Kind::Write);
    if (!HasTables(database)) database.Execute(kTables);
    transaction.Commit();
  }
  database.Execute("PRAGMA journal_mode = WAL");
  database.Execute("PRAGMA synchronous = FULL");
  database.Execute("PRAGMA foreign_keys = ON");
}

}  // namespace

Database OpenDatabase(const std::filesystem::path& file, Database::WhenMissing whenMissing,
                      int busyTimeoutMs) {
  try {
    Database database(file, whenMissing, busyTimeoutMs);
    Prepare(database);
    return database;
  } catch (const DatabaseError& error) {
    throw DatabaseError("the database " + file.string() + " cannot be used: " + error.what());
  }
}

}  // namespace tallyo::service
