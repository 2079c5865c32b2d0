#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "form/main_form.h"
#include "form/shared_state.h"
#include "platform/clock.h"
#include "platform/files.h"

namespace tallyo {

// The hits of one hour.
struct HourHits {
  int day = 0;   // 1 to 31
  int hour = 0;  // 0 to 23
  double hits = 0;
};

// The history: one text file for each link and month, "<friendly name>-<mmm>" in the year's folder,
// with a line "ddhhHITS" for each hour that had hits, in the order in which the hours came.
class DailyFiles {
 public:
  DailyFiles(MainForm& form, SharedState& state, Files& files, const Clock& clock)
      : form_(form), state_(state), files_(files), clock_(clock) {}

  // Makes the folder of the current year and makes it the one of this session. The folder's failure
  // is ignored: later writes are then lost.
  void EnsureYearFolder();

  // Adds hits to the current hour of today. Ends silently at its first failure, with false; the
  // file is then as it was. A name that is no file name is such a failure.
  bool WriteDailyCount(std::int16_t increment, std::string_view name);

  // Fills the grid with one month of a link; the empty month is the current one. Reading ends
  // silently at a missing file and at the first line that has no place in the grid.
  void LoadDailyFile(std::string_view month, std::string_view name);

  // All hours of a link's month that have an entry, by day and hour, also those that the grid has
  // no place for (more hits than 32,767). Lines that are no entry are passed over; a missing file
  // has none.
  [[nodiscard]] std::vector<HourHits> ReadMonth(std::string_view month,
                                                std::string_view name) const;

  // Whether there is anything kept for a link and month.
  [[nodiscard]] bool HasFile(std::string_view month, std::string_view name) const;

 private:
  // Throws RuntimeError for a name that is no file name.
  [[nodiscard]] std::filesystem::path DailyFile(std::string_view month,
                                                std::string_view name) const;
  [[nodiscard]] std::string EnsureDailyFile(const std::filesystem::path& file) const;
  void ClearGrid();
  void ShowLine(std::string_view line);

  MainForm& form_;
  SharedState& state_;
  Files& files_;
  const Clock& clock_;
  std::int16_t days_ = 0;
};

// The content of a daily file after `increment` more hits in the hour of `key` ("ddhh").
[[nodiscard]] std::string WithHitsAdded(std::string_view content, std::string_view key,
                                        std::int16_t increment);

}  // namespace tallyo
