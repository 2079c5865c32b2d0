#include "stats/snapshot_line.h"

#include "text/integers.h"
#include "text/leading_number.h"
#include "text/runtime_error.h"

namespace tallyo {

std::optional<SnapshotEntry> SnapshotLine::Next() {
  const std::size_t comma = rest_.find(',');
  if (comma == std::string_view::npos) {
    return std::nullopt;
  }
  const std::string_view entry = rest_.substr(0, comma);
  rest_.remove_prefix(comma + 1);
  const std::size_t equals = entry.find('=');
  if (equals == std::string_view::npos) {
    throw RuntimeError("the snapshot has an entry without \"=\"");
  }
  return SnapshotEntry{.name = entry.substr(0, equals),
                       .counter = ToInt16(LeadingNumber(entry.substr(equals + 1)))};
}

}  // namespace tallyo
