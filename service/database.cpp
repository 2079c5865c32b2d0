#include "service/database.h"

#include <sqlite3.h>

namespace tallyo::service {

void Database::Closer::operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }

Database::Database(const std::filesystem::path& file, WhenMissing whenMissing, int busyTimeoutMs) {
  const int create = whenMissing == WhenMissing::Create ? SQLITE_OPEN_CREATE : 0;
  sqlite3* handle = nullptr;
  const int result =
      sqlite3_open_v2(file.c_str(), &handle, SQLITE_OPEN_READWRITE | create, nullptr);
  handle_.reset(handle);
  if (result != SQLITE_OK) Fail();
  sqlite3_busy_timeout(handle, busyTimeoutMs);
}

void Database::Fail() const {
  throw DatabaseError(handle_ ? sqlite3_errmsg(handle_.get()) : "out of memory");
}

void Database::Execute(const char* sql) {
  if (sqlite3_exec(handle_.get(), sql, nullptr, nullptr, nullptr) != SQLITE_OK) Fail();
}

std::int64_t Database::Number(const char* sql) {
  Statement statement(*this, sql);
  return statement.Step() ? statement.Number(0) : 0;
}

std::int64_t Database::ChangedRows() const { return sqlite3_changes64(handle_.get()); }

std::int64_t Database::LastRowId() const { return sqlite3_last_insert_rowid(handle_.get()); }

bool Database::InTransaction() const { return sqlite3_get_autocommit(handle_.get()) == 0; }

void Statement::Finalizer::operator()(sqlite3_stmt* statement) const {
  sqlite3_finalize(statement);
}

Statement::Statement(Database& database, std::string_view sql) : database_(database) {
  sqlite3_stmt* statement = nullptr;
  const int result = sqlite3_prepare_v2(database.Handle(), sql.data(), static_cast<int>(sql.size()),
                                        &statement, nullptr);
  statement_.reset(statement);
  if (result != SQLITE_OK) database_.Fail();
}

Statement& Statement::Bind(int place, std::string_view text) {
  const int result = sqlite3_bind_text64(statement_.get(), place, text.data(), text.size(),
                                         SQLITE_STATIC, SQLITE_UTF8);
  if (result != SQLITE_OK) database_.Fail();
  return *this;
}

Statement& Statement::Bind(int place, std::int64_t number) {
  if (sqlite3_bind_int64(statement_.get(), place, number) != SQLITE_OK) database_.Fail();
  return *this;
}

bool Statement::Step() {
  const int result = sqlite3_step(statement_.get());
  if (result != SQLITE_ROW && result != SQLITE_DONE) database_.Fail();
  return result == SQLITE_ROW;
}

void Statement::Run() {
  while (Step()) {
  }
  sqlite3_reset(statement_.get());
}

std::string Statement::Text(int column) const {
  const auto* text = static_cast<const char*>(
      static_cast<const void*>(sqlite3_column_text(statement_.get(), column)));
  const int size = sqlite3_column_bytes(statement_.get(), column);
  return text == nullptr ? std::string() : std::string(text, static_cast<std::size_t>(size));
}

std::int64_t Statement::Number(int column) const {
  return sqlite3_column_int64(statement_.get(), column);
}

Transaction::Transaction(Database& database, Kind kind) : database_(database) {
  database_.Execute(kind == Kind::Write ? "BEGIN IMMEDIATE" : "BEGIN");
}

Transaction::~Transaction() {
  // After some failures SQLite has rolled back already.
  if (database_.InTransaction()) {
    sqlite3_exec(database_.Handle(), "ROLLBACK", nullptr, nullptr, nullptr);
  }
}

void Transaction::Commit() { database_.Execute("COMMIT"); }

}  // namespace tallyo::service
