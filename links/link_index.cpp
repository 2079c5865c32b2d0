#include "links/link_index.h"

#include <utility>

#include "text/runtime_error.h"
#include "text/two_digits.h"

namespace tallyo {

LinkIndex::LinkIndex(std::vector<std::string> texts) : texts_(std::move(texts)) {
  for (const std::string& text : texts_) {
    const LinkRecord record = SplitRecord(text);
    Add(record);
    if (record.tooLong) {
      endsTooLong_ = true;
      break;
    }
    ++readable_;
  }
}

void LinkIndex::Add(const LinkRecord& record) {
  const std::size_t number = readable_;
  for (std::size_t f = 0; f < columns_.size(); ++f) {
    Column& column = columns_[f];
    const auto& filled = record.fields[f];
    if (filled) {
      if (column.firstFilled == kNone) {
        column.firstFilled = number;
      }
      if (!record.tooLong) {
        column.firstWith.try_emplace(*filled, number);
      }
      column.values.push_back(*filled);
    } else {
      column.values.push_back(column.values.empty() ? std::string_view() : column.values.back());
    }
  }
}

LinkLookup LinkIndex::Find(LinkFields& fields, std::string_view key, FindBy by) const {
  const std::size_t match = Match(fields, key, by);
  if (match != kNone) {
    Fill(fields, match);
    return {true, TwoDigits(static_cast<int>(match) + 1)};
  }
  if (endsTooLong_) {
    Fill(fields, readable_);
    throw RuntimeError("record " + TwoDigits(static_cast<int>(readable_) + 1) +
                       " has more than four fields");
  }
  if (readable_ > 0) {
    Fill(fields, readable_ - 1);
  }
  return {false, TwoDigits(static_cast<int>(readable_) + 1)};
}

// Leaves the fields as the walk does after reading a record.
void LinkIndex::Fill(LinkFields& fields, std::size_t record) const {
  for (std::size_t f = 0; f < columns_.size(); ++f) {
    if (columns_[f].firstFilled <= record) {
      fields[f] = columns_[f].values[record];
    }
  }
}

std::size_t LinkIndex::Match(const LinkFields& fields, std::string_view key, FindBy by) const {
  if (readable_ == 0) {
    return kNone;
  }
  if (by == FindBy::First) {
    return 0;
  }
  const std::size_t f = by == FindBy::Reference ? linkfield::kReference : linkfield::kFriendlyName;
  const Column& column = columns_[f];
  // A first record that leaves the field open is compared by what the caller's field held before.
  if (column.firstFilled != 0 && fields[f] == key) {
    return 0;
  }
  const auto found = column.firstWith.find(key);
  return found == column.firstWith.end() ? kNone : found->second;
}

}  // namespace tallyo
