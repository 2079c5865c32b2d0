#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "tests/fuzz/plain_text.h"

namespace tallyo::fuzz {

using PlainFields = std::array<std::string, 4>;

struct PlainLookup {
  bool found = false;
  bool failed = false;  // at a record with too many fields
  std::string number;
};

// The records of the monitored links, and a walk through all of them for every question.
class PlainLinks {
 public:
  explicit PlainLinks(std::vector<std::string> values) : values_(std::move(values)) {}

  // mode: 1 compares the friendly name, 2 the reference, anything else takes the first record.
  PlainLookup Find(PlainFields& fields, const std::string& key, int mode) const {
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

  // The names that the list of links shows.
  [[nodiscard]] std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (std::size_t number = 1;; ++number) {
      const std::string value = Value(number);
      const std::size_t c1 = PlainPosition(value, ",");
      const std::size_t c2 = c1 == 0 ? 0 : PlainPosition(value, ",", c1 + 1);
      if (c2 == 0) {
        return names;
      }
      names.push_back(PlainMid(value, c1 + 1, c2 - c1 - 1));
    }
  }

  // The records before the first empty one.
  [[nodiscard]] std::vector<std::string> Records() const {
    std::vector<std::string> records;
    while (!Value(records.size() + 1).empty()) {
      records.push_back(Value(records.size() + 1));
    }
    return records;
  }

 private:
  // Of record 1 and on; "" where there is none.
  [[nodiscard]] std::string Value(std::size_t number) const {
    return number <= values_.size() ? values_[number - 1] : "";
  }

  // Writes the fields of a record over those that are there; false where it has too many.
  static bool Split(std::string value, PlainFields& fields) {
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
    if (k <= 3) {
      fields.at(k) = value;
    }
    return k <= 3;
  }

  std::vector<std::string> values_;
};

}  // namespace tallyo::fuzz
