#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "settings/settings_store.h"

namespace tallyo::test {

// What a person would miss: the content of an AppDir, but for work files, read by plain rules.
struct KeptData {
  std::map<std::string, std::string> files;  // daily files and exports, by their path in the AppDir
  std::map<std::string, std::map<std::string, std::int64_t>>
      hours;                        // by daily file, then by "ddhh"
  std::string counters = "(none)";  // those that the next session begins with
  std::vector<std::string> links;   // the records 01, 02 ..., "size,name,reference,path"
  std::map<std::string, std::string> settings;  // those beside the links
  std::string damage;                           // what is not whole, a line for each

  // All hits in the daily files of a link.
  [[nodiscard]] std::int64_t HitsOf(const std::string& name) const;
  // The hours that an earlier state has and that are missing or smaller here, as text.
  [[nodiscard]] std::string LostSince(const KeptData& earlier) const;
};

// The fields of a record, of which a whole one has four.
[[nodiscard]] std::vector<std::string> FieldsOf(const std::string& record);

[[nodiscard]] KeptData ReadKeptData(const std::filesystem::path& appDir, SettingsStore& store);

}  // namespace tallyo::test
