#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tallyo {

struct SnapshotEntry {
  std::string_view name;
  std::int16_t counter = 0;
};

// Walks through the entries of a snapshot's line, "name=counter," each. What stands behind the last
// comma is never read. The line must outlive the walk.
class SnapshotLine {
 public:
  explicit SnapshotLine(std::string_view line) : rest_(line) {}

  // The next entry; nothing where no comma is left. Throws RuntimeError for an entry without "="
  // and for a counter that does not fit 16 bits.
  [[nodiscard]] std::optional<SnapshotEntry> Next();

  [[nodiscard]] bool UsedUp() const { return rest_.empty(); }

 private:
  std::string_view rest_;
};

}  // namespace tallyo
