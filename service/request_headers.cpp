#include "service/request_headers.h"

#include "service/plain_text.h"

namespace tallyo::service {

namespace {

std::string_view WithoutLeading(std::string_view text, std::string_view letters) {
  const auto begin = text.find_first_not_of(letters);
  return begin == std::string_view::npos ? std::string_view() : text.substr(begin);
}

// "bytes=0-" and what begins so.
bool BeginsAtByteZero(std::string_view range) {
  constexpr std::string_view kUnit = "bytes";
  if (!BeginsIgnoringCase(range, kUnit)) return false;
  range = WithoutLeading(range.substr(kUnit.size()), " ");
  if (!range.starts_with('=')) return false;
  range = WithoutLeading(range.substr(1), " ");
  return range.starts_with('0') && WithoutLeading(range, "0").starts_with('-');
}

}  // namespace

void RequestHeaders::Note(std::string_view name, std::string_view value) {
  if (EqualsIgnoringCase(name, "Purpose") || EqualsIgnoringCase(name, "Sec-Purpose") ||
      EqualsIgnoringCase(name, "X-Moz")) {
    if (BeginsIgnoringCase(value, "prefetch")) isVisit_ = false;
  } else if (EqualsIgnoringCase(name, "Range")) {
    if (!BeginsAtByteZero(value)) isVisit_ = false;
  } else if (EqualsIgnoringCase(name, "Sec-Fetch-Site")) {
    isFromAnotherSite_ =
        EqualsIgnoringCase(value, "cross-site") || EqualsIgnoringCase(value, "same-site");
  }
}

}  // namespace tallyo::service
