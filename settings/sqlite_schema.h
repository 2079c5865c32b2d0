#pragma once

struct sqlite3;

namespace tallyo {

enum class SchemaState {
  Empty,    // a database without anything in it
  Current,  // a settings store
  Newer,    // a settings store of a later Tallyo
  Foreign,  // somebody else's database
};

// Throws RuntimeError where the database cannot be read.
[[nodiscard]] SchemaState StateOfSchema(sqlite3& database);

// Makes a settings store of an empty database, inside the caller's transaction. Throws RuntimeError
// with SQLite's reason.
void CreateSchema(sqlite3& database);

}  // namespace tallyo
