#include "settings/sqlite_statement.h"

#include <sqlite3.h>

#include <cstddef>

#include "text/runtime_error.h"

namespace tallyo {
namespace {

// A null pointer would bind NULL, which equals nothing.
const char* StartOf(std::string_view bytes) { return bytes.empty() ? "" : bytes.data(); }

}  // namespace

void SqliteStatement::Finalize::operator()(sqlite3_stmt* handle) const noexcept {
  sqlite3_finalize(handle);
}

SqliteStatement::SqliteStatement(sqlite3& database, std::string_view sql) {
  sqlite3_stmt* handle = nullptr;
  const int result = sqlite3_prepare_v3(&database, sql.data(), static_cast<int>(sql.size()),
                                        SQLITE_PREPARE_PERSISTENT, &handle, nullptr);
  handle_.reset(handle);
  if (result != SQLITE_OK) {
    throw RuntimeError(sqlite3_errmsg(&database));
  }
}

SqliteRun::~SqliteRun() { sqlite3_reset(handle_); }

SqliteRun& SqliteRun::BindNumber(std::int64_t number) {
  Check(sqlite3_bind_int64(handle_, ++bound_, number));
  return *this;
}

SqliteRun& SqliteRun::BindText(std::string_view text) {
  Check(sqlite3_bind_text64(handle_, ++bound_, StartOf(text), text.size(), SQLITE_STATIC,
                            SQLITE_UTF8));
  return *this;
}

SqliteRun& SqliteRun::BindBlob(std::string_view bytes) {
  Check(sqlite3_bind_blob64(handle_, ++bound_, StartOf(bytes), bytes.size(), SQLITE_STATIC));
  return *this;
}

bool SqliteRun::NextRow() {
  if (failed_) {
    return false;
  }
  const int result = sqlite3_step(handle_);
  failed_ = result != SQLITE_ROW && result != SQLITE_DONE;
  return result == SQLITE_ROW;
}

bool SqliteRun::Finish() {
  while (NextRow()) {
  }
  return !failed_;
}

std::int64_t SqliteRun::Number(int column) const { return sqlite3_column_int64(handle_, column); }

std::string SqliteRun::Bytes(int column) const {
  const auto* bytes = static_cast<const char*>(sqlite3_column_blob(handle_, column));
  const int size = sqlite3_column_bytes(handle_, column);
  return bytes == nullptr ? "" : std::string(bytes, static_cast<std::size_t>(size));
}

void SqliteRun::Check(int result) { failed_ = failed_ || result != SQLITE_OK; }

}  // namespace tallyo
