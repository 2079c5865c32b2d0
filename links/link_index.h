#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "links/link_record.h"
#include "text/two_digits.h"

namespace tallyo {

// What a lookup compares with its key.
enum class FindBy { FriendlyName = 1, Reference = 2, First = 0 };

struct LinkLookup {
  bool found = false;
  int record = 1;  // counted from 1; where none was found, the one behind the last

  // The record's number as its key has it, "01".
  [[nodiscard]] std::string Number() const { return TwoDigits(record); }
};

// Answers lookups in a list of records without walking through it, with exactly what a walk from
// record 01 upward would give: the walk fills the caller's fields record by record, a field that a
// record does not fill keeps what it held, the key is compared with the fields after each record,
// and a record that is too long ends the walk with an error.
class LinkIndex {
 public:
  LinkIndex() = default;

  // Record i + 1 is texts[i].
  explicit LinkIndex(std::vector<std::string> texts);

  // The index points into its own texts, which a move takes along and a copy would not.
  LinkIndex(LinkIndex&&) = default;
  LinkIndex& operator=(LinkIndex&&) = default;
  LinkIndex(const LinkIndex&) = delete;
  LinkIndex& operator=(const LinkIndex&) = delete;
  ~LinkIndex() = default;

  [[nodiscard]] const std::vector<std::string>& Texts() const { return texts_; }

  // Whether every record fills all four fields and none is too long. A walk then comes out the same
  // whatever the fields held before.
  [[nodiscard]] bool AllWhole() const { return allWhole_; }

  // Where AllWhole: the first record with this reference, counted from 0; nothing where there is
  // none.
  [[nodiscard]] std::optional<std::size_t> FirstWithReference(std::string_view reference) const;

  // Where AllWhole: a field of a record that FirstWithReference gave. The view lives as long as
  // this does.
  [[nodiscard]] std::string_view Field(std::size_t record, std::size_t field) const {
    return columns_[field].values[record];
  }

  // The caller's fields are left as the walk leaves them. Throws RuntimeError where the walk meets
  // a record that is too long.
  LinkLookup Find(LinkFields& fields, std::string_view key, FindBy by) const;

 private:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  // Of one field: what the walk holds after each record, and who brought a value first.
  struct Column {
    std::vector<std::string_view> values;  // by record: the last value filled up to it
    std::vector<bool> isFirst;             // by record: whether it is the first with its value
    std::unordered_map<std::string_view, std::size_t> firstWith;
    std::size_t firstFilled = kNone;
  };

  void Add(const LinkRecord& record);
  void Fill(LinkFields& fields, std::size_t record) const;
  [[nodiscard]] std::size_t Match(const LinkFields& fields, std::string_view key, FindBy by) const;
  [[nodiscard]] std::size_t FirstFilledWith(const Column& column, std::string_view key) const;

  std::vector<std::string> texts_;
  std::size_t readable_ = 0;  // records before the one that is too long, or all
  bool endsTooLong_ = false;
  bool allWhole_ = true;
  std::array<Column, 4> columns_;
  // The record behind the one that was found last: what is looked up in a row mostly stands in a
  // row.
  mutable std::size_t next_ = 0;
};

}  // namespace tallyo
