#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "settings/settings_store.h"

namespace tallyo {

// Counts, for the keys that somebody asks about, the changes that may have touched them or anything
// below them.
class WatchedKeys {
 public:
  // The changes since the first question about this key. Paths are without a trailing "\".
  [[nodiscard]] std::int64_t ChangesBelow(Hive hive, std::string_view path);

  // A key was made, or a value of it written or deleted.
  void NoteChange(Hive hive, std::string_view path);

  // A key was deleted with all below it.
  void NoteTreeChange(Hive hive, std::string_view path);

  // Nobody knows what was changed.
  void NoteAnyChange();

 private:
  struct Watched {
    Hive hive;
    std::string path;
    std::int64_t changes = 0;
  };

  std::vector<Watched> watched_;  // few: one for each part that keeps something in memory
};

}  // namespace tallyo
