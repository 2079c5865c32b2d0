#include <string>

#include "links/link_index.h"
#include "links/link_record.h"
#include "tests/fuzz/findings.h"
#include "tests/fuzz/input_parts.h"
#include "tests/fuzz/memory_machine.h"
#include "tests/fuzz/plain_links.h"
#include "tests/fuzz/plain_text.h"

namespace tallyo::fuzz {
namespace {

template <typename Fields>
void NoteLookup(Findings& findings, const PlainLookup& lookup, const Fields& fields) {
  findings.emplace_back("lookup",
                        lookup.failed ? "(error)" : lookup.number + (lookup.found ? "" : " no"));
  for (const std::string& field : fields) {
    findings.emplace_back("field", field);
  }
}

PlainLookup Find(const LinkIndex& index, LinkFields& fields, const std::string& key, int mode) {
  try {
    const auto by = mode == 1   ? FindBy::FriendlyName
                    : mode == 2 ? FindBy::Reference
                                : FindBy::First;
    const LinkLookup lookup = index.Find(fields, key, by);
    return {.found = lookup.found, .failed = false, .number = lookup.Number()};
  } catch (const RuntimeError&) {
    return {.found = false, .failed = true, .number = ""};
  }
}

void NoteNames(Findings& findings, const std::vector<std::string>& records) {
  for (const std::string& record : records) {
    const std::optional<std::string_view> name = ListedName(record);
    if (!name) {
      return;
    }
    findings.emplace_back("name", *name);
  }
}

}  // namespace
}  // namespace tallyo::fuzz

// The stored records, a line each, and lookups, a line each: a digit for what is compared, and the
// key. The lookups share one set of fields.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  using namespace tallyo::fuzz;
  InputParts parts(data, size);
  const std::vector<std::string> values = PlainLines(parts.Next());
  const PlainLinks links(values);
  MemoryMachine machine;
  machine.SetRecords(values);
  const std::vector<std::string> records = tallyo::StoredRecords(machine.store);
  const tallyo::LinkIndex index(records);

  Findings program;
  Findings plain;
  NoteNames(program, records);
  for (const std::string& name : links.Names()) {
    plain.emplace_back("name", name);
  }
  tallyo::LinkFields fields;
  PlainFields plainFields;
  for (const std::string& line : PlainLines(parts.Rest())) {
    const int mode = line.starts_with('1') ? 1 : line.starts_with('2') ? 2 : 0;
    const std::string key = PlainMid(line, 2);
    NoteLookup(program, Find(index, fields, key, mode), fields);
    NoteLookup(plain, links.Find(plainFields, key, mode), plainFields);
  }
  for (const std::string& record : index.Texts()) {
    program.emplace_back("record", record);
  }
  for (const std::string& record : links.Records()) {
    plain.emplace_back("record", record);
  }
  RequireSame(program, plain);
  return 0;
}
