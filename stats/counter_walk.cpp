#include "stats/counter_walk.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "stats/refresh_interval.h"
#include "text/decimal_text.h"
#include "text/integers.h"
#include "text/leading_number.h"

namespace tallyo {

CounterWalk::CounterWalk(MainForm& form, const SharedState& state, const Clock& clock,
                         MonitoredLinks& links, DailyFiles& dailyFiles,
                         DailyBatch::BeforeWriting beforeWriting,
                         std::function<void(const std::string&)> onWritten)
    : form_(form),
      state_(state),
      clock_(clock),
      links_(links),
      batch_(dailyFiles, std::move(onWritten), std::move(beforeWriting)) {}

void CounterWalk::Take(std::string_view counter, std::string_view reference) {
  if (left_ == 0) {
    BeginStretch();
  }
  --left_;
  // The last record of a stretch leaves the fields as the walk of the next one is to find them.
  if (index_->AllWhole() && left_ > 0) {
    if (const std::optional<std::size_t> record = index_->FirstWithReference(reference)) {
      TakeLink(counter, index_->Field(*record, linkfield::kFriendlyName),
               index_->Field(*record, linkfield::kLinkPath));
    }
  } else if (index_->Find(fields_, reference, FindBy::Reference).found) {
    TakeLink(counter, fields_[linkfield::kFriendlyName], fields_[linkfield::kLinkPath]);
  }
}

void CounterWalk::BeginStretch() {
  index_ = &links_.Index();
  due_.reset();
  left_ = kStretch;
}

bool CounterWalk::IsDue() const {
  const double sinceLast = ComparableNow(clock_.Now()) - static_cast<double>(state_.LastCheckTime);
  return sinceLast >= RefreshIntervalSeconds(form_.Text2.Text()) || state_.LastCheckTime == 0;
}

void CounterWalk::TakeLink(std::string_view counter, std::string_view name, std::string_view path) {
  ReportList& list = form_.ListView1;
  const double now = LeadingNumber(counter);
  const std::vector<int>& rows = list.RowsNamed(name);
  if (rows.empty()) {
    list.AddRow(std::string(name));
    list.SetValue(list.RowCount(), 1, DecimalText(now));
    list.SetValue(list.RowCount(), 3, path);
  } else {
    const int row = rows.front();
    oldCounter_ = LeadingNumber(list.Value(row, 1));
    list.SetValue(row, 1, counter);
    list.SetValue(row, 2, DecimalText(now - oldCounter_));
  }
  if (!due_) {
    due_ = IsDue();
  }
  if (*due_) {
    BookGrowth(now - oldCounter_, name);
  }
}

void CounterWalk::BookGrowth(double growth, std::string_view name) {
  const std::int16_t increment = ToInt16(growth);
  if (increment > 0) {
    batch_.Add(increment, name);
  }
}

}  // namespace tallyo
