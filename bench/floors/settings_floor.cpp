// The least that COUNT settings need, written one by one: an upsert for each, prepared once, in a
// database with the same tables and the same durability. Usage: settings-floor FILE COUNT

#include <sqlite3.h>

#include <cstdlib>
#include <iostream>
#include <string>

#include "bench/made_settings.h"
#include "bench/rounds.h"

namespace {

constexpr const char* kTables = R"(
  PRAGMA journal_mode = WAL;
  PRAGMA synchronous = FULL;
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
  INSERT INTO keys VALUES (1, 2147483650, 'Software');
)";

void Require(bool done, sqlite3* database) {
  if (!done) {
    std::cerr << "settings-floor: " << sqlite3_errmsg(database) << '\n';
    std::exit(1);
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "Usage: settings-floor FILE COUNT\n";
    return 2;
  }
  sqlite3* database = nullptr;
  Require(sqlite3_open(argv[1], &database) == SQLITE_OK, database);
  Require(sqlite3_exec(database, kTables, nullptr, nullptr, nullptr) == SQLITE_OK, database);
  sqlite3_stmt* upsert = nullptr;
  Require(sqlite3_prepare_v2(database,
                             R"(INSERT INTO "values" (key, name, type, data) VALUES (1, ?, 1, ?)
                                ON CONFLICT (key, name) DO UPDATE SET data = excluded.data)",
                             -1, &upsert, nullptr) == SQLITE_OK,
          database);
  long written = 0;
  tallyo::bench::ServeRounds([&, count = std::atoi(argv[2])] {
    for (int i = 0; i < count; ++i) {
      const auto& name = tallyo::bench::kWrittenSettings[static_cast<std::size_t>(i) % 4];
      const std::string text = std::to_string(++written);
      sqlite3_bind_text(upsert, 1, name.data(), static_cast<int>(name.size()), SQLITE_STATIC);
      sqlite3_bind_blob(upsert, 2, text.c_str(), static_cast<int>(text.size()) + 1, SQLITE_STATIC);
      Require(sqlite3_step(upsert) == SQLITE_DONE, database);
      sqlite3_reset(upsert);
    }
  });
  sqlite3_finalize(upsert);
  sqlite3_close(database);
}
