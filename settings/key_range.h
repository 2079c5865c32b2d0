#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "settings/settings_store.h"
#include "settings/sqlite_statement.h"

namespace tallyo {

// A key and the keys below it, as the queries for trees ask for them. The path is without a
// trailing
// "\"; the empty one is the whole hive.
class KeyRange {
 public:
  explicit KeyRange(std::string_view path) : path_(path), below_(path_ + "\\"), end_(path_ + "]") {}

  // The run must end before this does.
  void Bind(SqliteRun& run, Hive hive) const {
    run.BindNumber(static_cast<std::int64_t>(hive)).BindText(path_);
    if (path_.empty()) {
      run.BindText("").BindBlob("");  // all texts: every blob follows every text
    } else {
      run.BindText(below_).BindText(end_);
    }
  }

 private:
  std::string path_;
  std::string below_;
  std::string end_;
};

}  // namespace tallyo
