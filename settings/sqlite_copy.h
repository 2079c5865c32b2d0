#pragma once

#include <filesystem>

#include "settings/sqlite_connection.h"

namespace tallyo {

// A copy in memory of a database file and of the changes in its write-ahead log, for a folder in
// which nothing may be written. No other program may have the database open. Throws RuntimeError.
[[nodiscard]] SqliteConnection CopyToMemory(const std::filesystem::path& file,
                                            const std::filesystem::path& log);

}  // namespace tallyo
