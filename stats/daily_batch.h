#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "stats/daily_files.h"

namespace tallyo {

// Daily counts that are written some dozens at a time, which takes hardly longer than one. They end
// up as if WriteDailyCount had been called for each, in order, but only once there are enough of
// them, or with Flush, or at the latest when this is destroyed.
class DailyBatch {
 public:
  using BeforeWriting = std::function<void(std::span<const DailyCount>)>;

  // onWritten: told the name of each link whose count has been written.
  // beforeWriting: told the counts that are about to be written, each time.
  DailyBatch(DailyFiles& dailyFiles, std::function<void(const std::string&)> onWritten,
             BeforeWriting beforeWriting = nullptr);
  ~DailyBatch() { Flush(); }
  DailyBatch(const DailyBatch&) = delete;
  DailyBatch& operator=(const DailyBatch&) = delete;

  // Adds hits to the hour in which this is called.
  void Add(std::int16_t increment, std::string_view name);

  void Flush();

 private:
  DailyFiles& dailyFiles_;
  BeforeWriting beforeWriting_;
  std::function<void(const std::string&)> onWritten_;
  std::vector<DailyCount> counts_;
};

}  // namespace tallyo
