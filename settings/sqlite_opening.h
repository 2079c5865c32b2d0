#pragma once

#include <filesystem>
#include <string>

#include "settings/sqlite_connection.h"

namespace tallyo {

enum class StoreAccess { ReadWrite, ReadOnly };

// What came of opening a settings database.
struct OpenedStore {
  SqliteConnection connection;  // null: there is nothing to read
  bool writable = false;
  std::string problem;  // one plain line for a person; "" where all is as asked
};

// Opens the database file of a settings store. With ReadWrite a missing or empty file becomes a
// new store; one that cannot be written is opened for reading, with a problem. With ReadOnly no
// file is made, changed or left behind in the folder, and a missing file is no problem. A file that
// is no settings store, or one of a newer Tallyo, is left as it is.
[[nodiscard]] OpenedStore OpenSettingsDatabase(const std::filesystem::path& file,
                                               StoreAccess access);

}  // namespace tallyo
