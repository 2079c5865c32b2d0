#include "settings/sqlite_queries.h"

#include <string>

namespace tallyo {
namespace {

// Hive, path, path and "\", path and "]": "]" follows "\", so the keys below a key are the paths
// between the last two. The first bounds let the index find the range.
constexpr const char* kInTree =
    " hive = ?1 AND path >= ?2 AND path < ?4 AND (path = ?2 OR path >= ?3) ";

std::string WithTree(const char* before, const char* behind) {
  return std::string(before) + kInTree + behind;
}

}  // namespace

SqliteQueries::SqliteQueries(sqlite3& database)
    : beginWriting(database, "BEGIN IMMEDIATE"),
      beginReading(database, "BEGIN"),
      commit(database, "COMMIT"),
      rollback(database, "ROLLBACK"),
      dataVersion(database, "PRAGMA data_version"),
      findKey(database, "SELECT path FROM keys WHERE hive = ? AND path = ?"),
      insertKey(database, "INSERT INTO keys (hive, path) VALUES (?, ?)"),
      readValue(database,
                R"(SELECT type, data FROM keys JOIN "values" ON key = id
                   WHERE hive = ? AND path = ? AND name = ?)"),
      writeValue(database,
                 R"(INSERT INTO "values" (key, name, type, data)
                    SELECT id, ?, ?, ? FROM keys WHERE hive = ? AND path = ?
                    ON CONFLICT (key, name) DO UPDATE
                    SET type = excluded.type, data = excluded.data)"),
      deleteValue(database,
                  R"(DELETE FROM "values"
                     WHERE key = (SELECT id FROM keys WHERE hive = ? AND path = ?) AND name = ?)"),
      deleteTreeValues(
          database,
          WithTree(R"(DELETE FROM "values" WHERE key IN (SELECT id FROM keys WHERE)", ")")),
      deleteTreeKeys(database, WithTree("DELETE FROM keys WHERE", "")),
      readTree(database,
               WithTree(R"(SELECT path, name, type, data FROM keys JOIN "values" ON key = id
                           WHERE)",
                        "ORDER BY path, name")) {}

}  // namespace tallyo
