#include "links/link_index.h"

#include <utility>

#include "text/runtime_error.h"

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
  const auto isKey = [](std::size_t field) {
    return field == linkfield::kReference || field == linkfield::kFriendlyName;
  };
  for (std::size_t f = 0; f < columns_.size(); ++f) {
    Column& column = columns_[f];
    const auto& filled = record.fields[f];
    allWhole_ = allWhole_ && filled && !record.tooLong;
    if (filled) {
      if (column.firstFilled == kNone) {
        column.firstFilled = number;
      }
      column.isFirst.push_back(isKey(f) && !record.tooLong &&
                               column.firstWith.try_emplace(*filled, number).second);
      column.values.push_back(*filled);
    } else {
      column.isFirst.push_back(false);
      column.values.push_back(column.values.empty() ? std::string_view() : column.values.back());
    }
  }
}

LinkLookup LinkIndex::Find(LinkFields& fields, std::string_view key, FindBy by) const {
  const std::size_t match = Match(fields, key, by);
  if (match != kNone) {
    Fill(fields, match);
    return {true, static_cast<int>(match) + 1};
  }
  if (endsTooLong_) {
    Fill(fields, readable_);
    throw RuntimeError("record " + LinkLookup{false, static_cast<int>(readable_) + 1}.Number() +
                       " has more than four fields");
  }
  if (readable_ > 0) {
    Fill(fields, readable_ - 1);
  }
  return {false, static_cast<int>(readable_) + 1};
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
  return FirstFilledWith(column, key);
}

std::size_t LinkIndex::FirstFilledWith(const Column& column, std::string_view key) const {
  if (next_ < readable_ && column.isFirst[next_] && column.values[next_] == key) {
    return next_++;
  }
  const auto found = column.firstWith.find(key);
  if (found == column.firstWith.end()) {
    return kNone;
  }
  next_ = found->second + 1;
  return found->second;
}

std::optional<std::size_t> LinkIndex::FirstWithReference(std::string_view reference) const {
  const std::size_t match = FirstFilledWith(columns_[linkfield::kReference], reference);
  return match == kNone ? std::nullopt : std::optional(match);
}

}  // namespace tallyo
