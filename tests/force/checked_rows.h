#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>

namespace tallyo::force {

// The rows of a text and a number that a statement yields in a database, read past the program that
// owns it. Throws runtime_error; a database that fails SQLite's own check is such a failure.
[[nodiscard]] std::map<std::string, std::int64_t> CheckedRows(const std::filesystem::path& database,
                                                              const std::string& sql);

// The counts in the database of a service, by reference.
[[nodiscard]] inline std::map<std::string, std::int64_t> StoredCounts(
    const std::filesystem::path& database) {
  return CheckedRows(database, "SELECT reference, hits FROM links");
}

}  // namespace tallyo::force
