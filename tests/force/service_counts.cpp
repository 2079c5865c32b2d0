#include "tests/force/service_counts.h"

#include <sqlite3.h>

#include <memory>
#include <stdexcept>

namespace tallyo::force {
namespace {

constexpr int kPatienceMs = 10'000;

using Connection = std::unique_ptr<sqlite3, int (*)(sqlite3*)>;

Connection Open(const std::filesystem::path& database) {
  sqlite3* raw = nullptr;
  sqlite3_open_v2(database.c_str(), &raw, SQLITE_OPEN_READWRITE, nullptr);
  sqlite3_busy_timeout(raw, kPatienceMs);
  return {raw, &sqlite3_close};
}

int TakeRow(void* counts, int /*columns*/, char** values, char** /*names*/) {
  (*static_cast<std::map<std::string, std::int64_t>*>(counts))[values[0]] = std::stoll(values[1]);
  return 0;
}

void Execute(sqlite3* database, const std::string& sql,
             std::map<std::string, std::int64_t>* rows = nullptr) {
  if (sqlite3_exec(database, sql.c_str(), rows == nullptr ? nullptr : &TakeRow, rows, nullptr) !=
      SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(database));
  }
}

}  // namespace

std::map<std::string, std::int64_t> StoredCounts(const std::filesystem::path& database) {
  const Connection connection = Open(database);
  std::map<std::string, std::int64_t> check;
  Execute(connection.get(), "SELECT integrity_check, 0 FROM pragma_integrity_check", &check);
  if (!check.contains("ok")) throw std::runtime_error(check.begin()->first);
  std::map<std::string, std::int64_t> counts;
  Execute(connection.get(), "SELECT reference, hits FROM links", &counts);
  return counts;
}

void SetServiceCount(const std::filesystem::path& database, const std::string& reference,
                     std::int64_t hits) {
  const Connection connection = Open(database);
  Execute(connection.get(), "UPDATE links SET hits = " + std::to_string(hits) +
                                " WHERE reference = '" + reference + "'");
}

}  // namespace tallyo::force
