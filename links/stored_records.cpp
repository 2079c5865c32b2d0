#include "links/stored_records.h"

#include <charconv>
#include <string_view>

#include "settings/names.h"
#include "settings/value_text.h"
#include "text/two_digits.h"

namespace tallyo {
namespace {

// The number of a value that is a link's record: a value of the same name as its key. 0 for others.
int RecordNumber(const StoredValue& value) {
  if (value.key.size() != names::MonitorFilesKey.size() + value.name.size() ||
      !std::string_view(value.key).ends_with(value.name)) {
    return 0;
  }
  int number = 0;
  std::from_chars(value.name.data(), value.name.data() + value.name.size(), number);
  return number > 0 && TwoDigits(number) == value.name ? number : 0;
}

}  // namespace

std::string RecordKey(int number) {
  return std::string(names::MonitorFilesKey) + TwoDigits(number);
}

std::vector<std::string> StoredRecords(SettingsStore& store) {
  const std::vector<StoredValue> values =
      store.ReadTree(Hive::LocalMachine, names::MonitorFilesKey);
  std::vector<std::string> records(values.size());
  for (const StoredValue& value : values) {
    const auto number = static_cast<std::size_t>(RecordNumber(value));
    if (number >= 1 && number <= records.size()) {
      records[number - 1] = TextOf(value.value);
    }
  }
  std::size_t count = 0;
  while (count < records.size() && !records[count].empty()) {
    ++count;
  }
  records.resize(count);
  return records;
}

}  // namespace tallyo
