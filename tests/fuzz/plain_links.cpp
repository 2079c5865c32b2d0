#include "tests/fuzz/plain_links.h"

#include "tests/fuzz/plain_text.h"

namespace tallyo::fuzz {
namespace {

// Writes the fields of a record over those that are there; false where it has too many.
bool Split(std::string value, PlainFields& fields) {
  std::size_t k = 0;
  while (const std::size_t p = PlainPosition(value, ",")) {
    if (p >= 2) {
      if (k > 3) {
        return false;
      }
      fields.at(k) = PlainMid(value, 1, p - 1);
    }
    value = PlainMid(value, p + 1);
    ++k;
  }
  if (k > 3) {
    return false;
  }
  fields.at(k) = value;
  return true;
}

}  // namespace

PlainLookup PlainLinks::Find(PlainFields& fields, const std::string& key, int mode) const {
  for (std::size_t number = 1;; ++number) {
    const std::string text = (number < 10 ? "0" : "") + std::to_string(number);
    const std::string value = Value(number);
    if (value.empty()) {
      return {.found = false, .failed = false, .number = text};
    }
    if (!Split(value, fields)) {
      return {.found = false, .failed = true, .number = ""};
    }
    if ((mode != 1 && mode != 2) || fields.at(static_cast<std::size_t>(mode)) == key) {
      return {.found = true, .failed = false, .number = text};
    }
  }
}

std::vector<std::string> PlainLinks::Names() const {
  std::vector<std::string> names;
  for (std::size_t number = 1;; ++number) {
    const std::string value = Value(number);
    const std::size_t c1 = PlainPosition(value, ",");
    const std::size_t c2 = c1 == 0 ? 0 : PlainPosition(value, ",", c1 + 1);
    if (c1 == 0 || c2 == 0) {
      return names;
    }
    names.push_back(PlainMid(value, c1 + 1, c2 - c1 - 1));
  }
}

std::vector<std::string> PlainLinks::Records() const {
  std::vector<std::string> records;
  while (!Value(records.size() + 1).empty()) {
    records.push_back(Value(records.size() + 1));
  }
  return records;
}

}  // namespace tallyo::fuzz
