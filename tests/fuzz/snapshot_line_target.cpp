#include "stats/snapshot_line.h"

#include <string>

#include "tests/fuzz/findings.h"
#include "tests/fuzz/plain_text.h"
#include "text/runtime_error.h"

namespace tallyo::fuzz {
namespace {

Findings ReadPlainly(std::string line) {
  Findings plain;
  while (const std::size_t comma = PlainPosition(line, ",")) {
    const std::string entry = PlainMid(line, 1, comma - 1);
    line = PlainMid(line, comma + 1);
    const std::size_t equals = PlainPosition(entry, "=");
    const std::optional<long> value = PlainInt16(PlainNumber(PlainMid(entry, equals + 1)));
    if (equals == 0 || !value) {
      plain.emplace_back("error", "");
      return plain;
    }
    plain.emplace_back(PlainMid(entry, 1, equals - 1), std::to_string(*value));
  }
  plain.emplace_back(line.empty() ? "used up" : "left", "");
  return plain;
}

Findings Read(std::string_view text) {
  Findings program;
  SnapshotLine line(text);
  try {
    while (const std::optional<SnapshotEntry> entry = line.Next()) {
      program.emplace_back(entry->name, std::to_string(entry->counter));
    }
    program.emplace_back(line.UsedUp() ? "used up" : "left", "");
  } catch (const RuntimeError&) {
    program.emplace_back("error", "");
  }
  return program;
}

}  // namespace
}  // namespace tallyo::fuzz

// The line of counters that a session leaves to the next.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  const std::string text(data, data + size);
  tallyo::fuzz::RequireSame(tallyo::fuzz::Read(text), tallyo::fuzz::ReadPlainly(text));
  return 0;
}
