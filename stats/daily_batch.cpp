#include "stats/daily_batch.h"

#include <utility>

namespace tallyo {

DailyBatch::DailyBatch(DailyFiles& dailyFiles, std::function<void(const std::string&)> onWritten,
                       BeforeWriting beforeWriting)
    : dailyFiles_(dailyFiles),
      beforeWriting_(std::move(beforeWriting)),
      onWritten_(std::move(onWritten)) {}

void DailyBatch::Add(std::int16_t increment, std::string_view name) {
  counts_.push_back(dailyFiles_.CountNow(increment, name));
  if (counts_.size() == DailyFiles::kMostTogether) {
    Flush();
  }
}

void DailyBatch::Flush() {
  if (counts_.empty()) {
    return;
  }
  if (beforeWriting_) {
    beforeWriting_(counts_);
  }
  const std::vector<bool> written = dailyFiles_.WriteDailyCounts(counts_);
  for (std::size_t i = 0; i < counts_.size(); ++i) {
    if (written[i]) {
      onWritten_(counts_[i].name);
    }
  }
  counts_.clear();
}

}  // namespace tallyo
