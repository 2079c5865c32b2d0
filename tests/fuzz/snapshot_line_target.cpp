#include "stats/snapshot_line.h"

#include <string>

#include "tests/fuzz/findings.h"
#include "tests/fuzz/plain_text.h"
#include "text/runtime_error.h"

namespace tallyo::fuzz {
namespace {

void ReadPlainly(std::string line, Findings& plain) {
  while (const std::size_t comma = PlainPosition(line, ",")) {
    const std::string entry = PlainMid(line, 1, comma - 1);
    line = PlainMid(line, comma + 1);
    const std::size_t equals = PlainPosition(entry, "=");
    const std::optional<long> value = PlainInt16(PlainNumber(PlainMid(entry, equals + 1)));
    if (equals == 0 || !value) {
      return plain.Note("error", "");
    }
    plain.Note("name", PlainMid(entry, 1, equals - 1));
    plain.Count("counter", *value);
  }
  plain.Count("used up", line.empty() ? 1 : 0);
}

void Read(std::string_view text, Findings& program) {
  SnapshotLine line(text);
  try {
    while (const std::optional<SnapshotEntry> entry = line.Next()) {
      program.Note("name", entry->name);
      program.Count("counter", entry->counter);
    }
    program.Count("used up", line.UsedUp() ? 1 : 0);
  } catch (const RuntimeError&) {
    program.Note("error", "");
  }
}

}  // namespace
}  // namespace tallyo::fuzz

// The line of counters that a session leaves to the next.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  using namespace tallyo::fuzz;
  const std::string text(data, data + size);
  Findings program;
  Findings plain;
  Read(text, program);
  ReadPlainly(text, plain);
  RequireSame(program, plain);
  return 0;
}
