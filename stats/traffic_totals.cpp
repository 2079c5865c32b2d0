#include "stats/traffic_totals.h"

#include "settings/names.h"
#include "stats/byte_count.h"
#include "text/decimal_text.h"
#include "text/integers.h"
#include "text/leading_number.h"
#include "text/runtime_error.h"

namespace tallyo {

void TrafficTotals::AddTransferredBytes(std::int32_t count, std::int16_t row) {
  if (row != detail::kBytesSession) {
    return;
  }
  AddToRow(detail::kBytesSession, count);
  AddToRow(detail::kBytesTotal, count);
  AddToTotal(count);
}

void TrafficTotals::AddExchange(std::string_view sent, std::string_view received) {
  settings_.Store().AsOneChange([&] {
    AddTransferredBytes(static_cast<std::int32_t>(sent.size()), detail::kBytesSession);
    AddTransferredBytes(static_cast<std::int32_t>(received.size()), detail::kBytesSession);
  });
}

void TrafficTotals::AddToRow(int row, std::int32_t count) {
  try {
    const std::int32_t shown = ToInt32(LeadingNumber(form_.ListView3.Value(row, 1)));
    const std::int32_t sum = ToInt32(static_cast<double>(shown) + count);
    form_.ListView3.SetValue(row, 1, FormatByteCount(sum));
  } catch (const RuntimeError&) {
    // The row keeps its text; the exact total goes on.
    return;
  }
}

void TrafficTotals::AddToTotal(std::int32_t count) {
  // One change, so that two programs that add at the same moment lose nothing.
  settings_.Store().AsOneChange([&] {
    const double total = LeadingNumber(settings_.Get(names::kBytesTransTotal)) + count;
    settings_.Set(names::kBytesTransTotal, DecimalText(total));
  });
}

}  // namespace tallyo
