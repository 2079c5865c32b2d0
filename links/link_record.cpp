#include "links/link_record.h"

namespace tallyo {

LinkRecord SplitRecord(std::string_view text) {
  LinkRecord record;
  std::size_t k = 0;
  for (std::size_t comma = text.find(','); comma != std::string_view::npos;
       comma = text.find(',')) {
    if (comma > 0 && k < record.fields.size()) {
      record.fields[k] = text.substr(0, comma);
    }
    text.remove_prefix(comma + 1);
    ++k;
  }
  if (k < record.fields.size()) {
    record.fields[k] = text;
  } else {
    record.tooLong = true;
  }
  return record;
}

std::string RecordText(const LinkFields& fields) {
  return fields[0] + "," + fields[1] + "," + fields[2] + "," + fields[3];
}

std::optional<std::string_view> ListedName(std::string_view text) {
  const std::size_t first = text.find(',');
  if (first == std::string_view::npos) {
    return std::nullopt;
  }
  const std::size_t second = text.find(',', first + 1);
  if (second == std::string_view::npos) {
    return std::nullopt;
  }
  return text.substr(first + 1, second - first - 1);
}

}  // namespace tallyo
