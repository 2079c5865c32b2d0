#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace tallyo {

// What the whole program shares besides its window.
struct SharedState {
  std::filesystem::path AppDir;  // the folder that everything is kept under
  std::string ServiceBaseUrl;    // ends with "/"

  std::string YearFolder;          // "2026/": this year's folder of daily files, under Data
  std::int16_t NextLinkIndex = 1;  // the number that the next link's record gets
  std::int16_t MaxSlots = 0;       // how many links the account may have
  float LastCheckTime = 0;         // seconds since midnight of the last acquisition; 0: none today
  std::int16_t CurrentScreen = 0;
  bool FieldTyped = false;  // the person has typed into a field of the manage-links screen

  [[nodiscard]] std::filesystem::path DataFolder() const { return AppDir / "Data"; }

  // The counters of the last session, and those that the running one keeps in case it is killed.
  [[nodiscard]] std::filesystem::path SnapshotFile() const { return DataFolder() / "LastRead.dat"; }
  [[nodiscard]] std::filesystem::path RecoveryFile() const { return DataFolder() / "LastRead.now"; }
};

}  // namespace tallyo
