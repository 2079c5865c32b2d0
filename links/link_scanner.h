#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tallyo {

// Scheme and host of a page's address with a trailing "/"; relative links are taken from there.
[[nodiscard]] std::string PageBase(std::string_view address);

struct FoundLinks {
  std::vector<std::string> links;  // in document order, duplicates kept
  bool complete = true;            // false where the scan ended at an anchor without ">"
};

// The texts of all links of one page may take so many bytes together; the scan ends where they
// would take more, as they do where thousands of anchors share one end.
inline constexpr std::size_t kMostLinkBytes = std::size_t{64} << 20U;

// The targets of all "<A HREF=" anchors (exactly so written) of a page. A target is what stands
// between one character behind the "=" and one before the next ">", quotes being assumed and not
// checked; everything up to its last "../" is dropped; without "://" it gets the base in front.
[[nodiscard]] FoundLinks ScanLinks(std::string_view page, std::string_view base);

}  // namespace tallyo
