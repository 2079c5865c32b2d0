#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "settings/settings_store.h"

namespace tallyo::test {

// What a person would miss: the content of an AppDir, but for work files.
struct KeptData {
  std::map<std::string, std::string> files;  // by their path in the AppDir, but for the two below
  std::string counters;                      // those that the next session begins with
  std::vector<std::string> links;            // the records
  std::map<std::string, std::string> settings;
};

[[nodiscard]] KeptData ReadKeptData(const std::filesystem::path& folder, SettingsStore& store);

// The hits of each hour in a daily file, by day and hour. Reports a line that is none.
[[nodiscard]] std::map<std::string, int> HoursOf(const std::string& dailyFile);

// Fails the test unless everything is as before or as after: each file and setting by itself, the
// counters and the links as a whole. The links may be gone where the operation replaces them. Hours
// of daily files have never shrunk, and grown by no more than the growth counted twice.
void ExpectOldOrNew(const KeptData& now, const KeptData& before, const KeptData& after,
                    bool linksMayBeGone);

}  // namespace tallyo::test
