#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "form/main_form.h"
#include "form/shared_state.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "stats/hour_total.h"

namespace tallyo {

// The hits of one hour.
struct HourHits {
  int day = 0;   // 1 to 31
  int hour = 0;  // 0 to 23
  double hits = 0;
};

// Hits of a link that are to be added to the hour of a moment.
struct DailyCount {
  std::string name;
  std::int16_t increment = 0;
  LocalTime at;
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

  // How many counts WriteDailyCounts takes.
  static constexpr std::size_t kMostTogether = 64;

  // The hits as they are to be added to the current hour.
  [[nodiscard]] DailyCount CountNow(std::int16_t increment, std::string_view name) const;

  // Adds them all, as WriteDailyCount would one after the other, but waits for the disk together.
  // Which were added; one that fails keeps none of the others from it.
  std::vector<bool> WriteDailyCounts(std::span<const DailyCount> counts);

  // The same for any number of counts.
  void WriteInTurn(std::span<const DailyCount> counts);

  // What the hours will hold with these counts. A count that cannot be written is left out.
  [[nodiscard]] std::vector<HourTotal> TotalsWith(std::span<const DailyCount> counts) const;

  // Adds what the hour lacks; nothing where it lacks nothing. Ends silently at its first failure.
  void BringTo(const HourTotal& total);

  // Deletes what a killed session may have left of its work.
  void ClearWorkFiles();

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
  [[nodiscard]] std::filesystem::path WorkFile(std::size_t number) const;
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
                                        double increment);

}  // namespace tallyo
