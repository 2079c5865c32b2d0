#pragma once

#include <filesystem>

#include "service/database.h"

namespace tallyo::service {

inline constexpr int kBusyTimeoutMs = 5000;

// Opens the service's database, with its tables made where they are missing. Throws DatabaseError
// with the file's name, also for a file that belongs to another program or to a later version of
// this one; such a file is left alone.
[[nodiscard]] Database OpenDatabase(const std::filesystem::path& file,
                                    Database::WhenMissing whenMissing,
                                    int busyTimeoutMs = kBusyTimeoutMs);

}  // namespace tallyo::service
