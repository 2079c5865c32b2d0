#pragma once

#include <filesystem>
#include <ostream>
#include <string>

#include "service/commands.h"

namespace tallyo::service {

// Each carries out one command on the database file and returns the program's exit status: 0 done,
// 1 refused, with the reason on `err`. Throws DatabaseError.
[[nodiscard]] int Run(const std::filesystem::path& database, const AddAccount& command,
                      std::ostream& err);
[[nodiscard]] int Run(const std::filesystem::path& database, const SetAccount& command,
                      std::ostream& err);

// All accounts, a line for each under a heading. Throws DatabaseError.
[[nodiscard]] std::string AccountTable(const std::filesystem::path& database);

}  // namespace tallyo::service
