#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "form/main_form.h"
#include "form/shared_state.h"
#include "links/monitored_links.h"
#include "platform/clock.h"
#include "stats/daily_batch.h"

namespace tallyo {

// Takes the records of one reply, in order: each brings its link's row up to date, and its growth
// goes into the daily files where it is due. No event may run between two records. What is still to
// be written is written when this is destroyed.
class CounterWalk {
 public:
  // beforeWriting: told the growth that is about to be written, the rows being up to date with it.
  // onWritten: told the name of each link whose growth has been written.
  CounterWalk(MainForm& form, const SharedState& state, const Clock& clock, MonitoredLinks& links,
              DailyFiles& dailyFiles, DailyBatch::BeforeWriting beforeWriting,
              std::function<void(const std::string&)> onWritten);

  // Passes over a reference that no link has. Throws RuntimeError where the stored links cannot be
  // read, or where growth that is due does not fit 16 bits; the row then has its new counter.
  void Take(std::string_view counter, std::string_view reference);

 private:
  // For so many records the store is asked once whether the links have changed, and the clock
  // whether the daily files are due.
  static constexpr int kStretch = 64;

  void BeginStretch();
  [[nodiscard]] bool IsDue() const;
  void TakeLink(std::string_view counter, std::string_view name, std::string_view path);
  void BookGrowth(double growth, std::string_view name);

  MainForm& form_;
  const SharedState& state_;
  const Clock& clock_;
  MonitoredLinks& links_;
  const LinkIndex* index_ = nullptr;
  std::optional<bool> due_;  // of this stretch, found out for its first link
  int left_ = 0;             // records of this stretch
  LinkFields fields_;
  // The growth of a link without a row is measured against the old counter of the record before it.
  double oldCounter_ = 0;
  DailyBatch batch_;
};

}  // namespace tallyo
