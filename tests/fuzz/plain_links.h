#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

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
  PlainLookup Find(PlainFields& fields, const std::string& key, int mode) const;

  // The names that the list of links shows.
  [[nodiscard]] std::vector<std::string> Names() const;

  // The records before the first empty one.
  [[nodiscard]] std::vector<std::string> Records() const;

 private:
  // Of record 1 and on; "" where there is none.
  [[nodiscard]] std::string Value(std::size_t number) const {
    return number <= values_.size() ? values_[number - 1] : "";
  }

  std::vector<std::string> values_;
};

}  // namespace tallyo::fuzz
