#pragma once

#include "settings/sqlite_statement.h"

namespace tallyo {

// Every statement that the settings store runs, prepared once. Parameters are bound in the order of
// the comments.
struct SqliteQueries {
  // Throws RuntimeError where the database has other tables.
  explicit SqliteQueries(sqlite3& database);

  SqliteStatement beginWriting;
  SqliteStatement beginReading;
  SqliteStatement commit;
  SqliteStatement rollback;
  SqliteStatement dataVersion;

  SqliteStatement findKey;      // hive, path: the spelling of the path
  SqliteStatement insertKey;    // hive, path
  SqliteStatement readValue;    // hive, path, name: type, data
  SqliteStatement writeValue;   // name, type, data, hive, path
  SqliteStatement deleteValue;  // hive, path, name

  // A key and the keys below it: hive, path, lowest path below, lowest path past these.
  SqliteStatement deleteTreeValues;
  SqliteStatement deleteTreeKeys;
  SqliteStatement readTree;  // path, name, type, data
};

}  // namespace tallyo
