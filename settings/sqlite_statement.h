#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace tallyo {

// Owns one prepared statement, to be run many times, one run at a time.
class SqliteStatement {
 public:
  // Throws RuntimeError with SQLite's reason.
  SqliteStatement(sqlite3& database, std::string_view sql);

  [[nodiscard]] sqlite3_stmt* Handle() const { return handle_.get(); }

 private:
  struct Finalize {
    void operator()(sqlite3_stmt* handle) const noexcept;
  };
  std::unique_ptr<sqlite3_stmt, Finalize> handle_;
};

// One run of a statement: bind every parameter in order, then ask for rows. The locks that the run
// holds go with it.
class SqliteRun {
 public:
  explicit SqliteRun(const SqliteStatement& statement) : handle_(statement.Handle()) {}
  ~SqliteRun();
  SqliteRun(const SqliteRun&) = delete;
  SqliteRun& operator=(const SqliteRun&) = delete;

  // Texts and blobs are not copied: they must outlive the run.
  SqliteRun& BindNumber(std::int64_t number);
  SqliteRun& BindText(std::string_view text);
  SqliteRun& BindBlob(std::string_view bytes);

  // Goes to the next row; false at the end, and where the run failed.
  [[nodiscard]] bool NextRow();

  // Runs to the end; whether that succeeded.
  [[nodiscard]] bool Finish();

  [[nodiscard]] bool Failed() const { return failed_; }

  // Columns of the current row, from 0.
  [[nodiscard]] std::int64_t Number(int column) const;
  [[nodiscard]] std::string Bytes(int column) const;

 private:
  void Check(int result);

  sqlite3_stmt* handle_;
  int bound_ = 0;
  bool failed_ = false;
};

}  // namespace tallyo
