#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace tallyo::service {

// A database that cannot be opened, read or written now; the text says why.
class DatabaseError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// One connection, used by one thread at a time. Everything throws DatabaseError.
class Database {
 public:
  enum class WhenMissing { Create, Fail };

  // busyTimeoutMs: how long a write waits for other processes before it fails.
  Database(const std::filesystem::path& file, WhenMissing whenMissing, int busyTimeoutMs);

  void Execute(const char* sql);

  // Raises DatabaseError with the reason of the call that failed last.
  [[noreturn]] void Fail() const;

  [[nodiscard]] std::int64_t Number(const char* sql);  // the first column of the first row
  [[nodiscard]] std::int64_t ChangedRows() const;      // by the statement before
  [[nodiscard]] std::int64_t LastRowId() const;
  [[nodiscard]] bool InTransaction() const;
  [[nodiscard]] sqlite3* Handle() const { return handle_.get(); }

 private:
  struct Closer {
    void operator()(sqlite3* handle) const;
  };
  std::unique_ptr<sqlite3, Closer> handle_;
};

// A prepared statement of a database that outlives it.
class Statement {
 public:
  Statement(Database& database, std::string_view sql);

  // Places count from 1. A bound text has to live until the statement has been run.
  Statement& Bind(int place, std::string_view text);
  Statement& Bind(int place, std::int64_t number);

  // Moves to the next row; false behind the last one.
  [[nodiscard]] bool Step();
  // Runs a statement that yields no row, and makes it ready for the next values.
  void Run();

  // Columns count from 0.
  [[nodiscard]] std::string Text(int column) const;
  [[nodiscard]] std::int64_t Number(int column) const;

 private:
  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const;
  };
  Database& database_;
  std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
};

// Rolls back unless it was committed.
class Transaction {
 public:
  enum class Kind { Read, Write };

  Transaction(Database& database, Kind kind);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  void Commit();

 private:
  Database& database_;
};

}  // namespace tallyo::service
