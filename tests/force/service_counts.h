#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>

namespace tallyo::force {

// The counts in the database of a service, by reference, read and written past it. Throw
// runtime_error; a database that fails SQLite's own check is such a failure.
[[nodiscard]] std::map<std::string, std::int64_t> StoredCounts(
    const std::filesystem::path& database);
void SetServiceCount(const std::filesystem::path& database, const std::string& reference,
                     std::int64_t hits);

}  // namespace tallyo::force
