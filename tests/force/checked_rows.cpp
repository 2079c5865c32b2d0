#include "tests/force/checked_rows.h"

#include <sqlite3.h>

#include <memory>
#include <stdexcept>

namespace tallyo::force {
namespace {

constexpr int kPatienceMs = 10'000;

using Rows = std::map<std::string, std::int64_t>;

int TakeRow(void* rows, int /*columns*/, char** values, char** /*names*/) {
  (*static_cast<Rows*>(rows))[values[0]] = std::stoll(values[1]);
  return 0;
}

Rows RowsOf(sqlite3* database, const std::string& sql) {
  Rows rows;
  if (sqlite3_exec(database, sql.c_str(), &TakeRow, &rows, nullptr) != SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(database));
  }
  return rows;
}

}  // namespace

Rows CheckedRows(const std::filesystem::path& database, const std::string& sql) {
  sqlite3* raw = nullptr;
  sqlite3_open_v2(database.c_str(), &raw, SQLITE_OPEN_READWRITE, nullptr);
  const std::unique_ptr<sqlite3, int (*)(sqlite3*)> connection(raw, &sqlite3_close);
  sqlite3_busy_timeout(raw, kPatienceMs);
  const Rows check = RowsOf(raw, "SELECT integrity_check, 0 FROM pragma_integrity_check");
  if (!check.contains("ok")) throw std::runtime_error(check.begin()->first);
  return RowsOf(raw, sql);
}

}  // namespace tallyo::force
