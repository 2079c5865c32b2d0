#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace tallyo {

// The fields of a monitored link, in the order of its record.
namespace linkfield {
inline constexpr std::size_t kSizeKb = 0;
inline constexpr std::size_t kFriendlyName = 1;
inline constexpr std::size_t kReference = 2;
inline constexpr std::size_t kLinkPath = 3;
}  // namespace linkfield

using LinkFields = std::array<std::string, 4>;

// A record as a lookup reads it: the fields that it fills. An empty field before the last and the
// fields that a short record lacks are not filled. The views live as long as the record's text.
struct LinkRecord {
  std::array<std::optional<std::string_view>, 4> fields;
  bool tooLong = false;  // it has five or more fields, which is an error wherever it is read
};

[[nodiscard]] LinkRecord SplitRecord(std::string_view text);

// The record text of four fields. Nothing is escaped: a comma inside a field shifts those behind.
[[nodiscard]] std::string RecordText(const LinkFields& fields);

// The friendly name as the list of links shows it: what stands between the first two commas of a
// record. Nothing for a text with fewer than two, which ends the list.
[[nodiscard]] std::optional<std::string_view> ListedName(std::string_view text);

}  // namespace tallyo
