#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace tallyo::force {

// What a Tallyo that is not running has kept in its AppDir, read by plain rules of its own and
// without touching anything there.
struct KeptState {
  std::vector<std::string> links;  // the records 01, 02 ..., "size,name,reference,path"
  std::map<std::string, std::string> settings;                       // those beside the links
  std::map<std::string, std::map<std::string, std::int64_t>> hours;  // by file, then by "ddhh"
  std::map<std::string, std::string> exports;                        // by file
  std::vector<std::string> faults;  // what is damaged, each as a sentence

  // All hits in the daily files of a link.
  [[nodiscard]] std::int64_t HitsOf(const std::string& name) const;
  // The hours that an earlier state has and that are missing or smaller here, as text.
  [[nodiscard]] std::string LostSince(const KeptState& earlier) const;
};

// The fields of a record, of which a whole one has four.
[[nodiscard]] std::vector<std::string> FieldsOf(const std::string& record);

// scratch: an empty folder of its own, where the settings store is copied to.
[[nodiscard]] KeptState ReadKept(const std::filesystem::path& appDir,
                                 const std::filesystem::path& scratch);

}  // namespace tallyo::force
