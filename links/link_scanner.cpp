#include "links/link_scanner.h"

#include <algorithm>

namespace tallyo {
namespace {

constexpr std::string_view kAnchor = "<A HREF=";
constexpr auto kNowhere = std::string_view::npos;

// The target without everything up to its last "../".
std::string_view WithoutParents(std::string_view target) {
  const std::size_t parent = target.rfind("../");
  return parent == kNowhere ? target : target.substr(parent + 3);
}

}  // namespace

std::string PageBase(std::string_view address) {
  const std::size_t scheme = address.find("://");
  // Without a scheme the search begins behind where a short one would have stood.
  const std::size_t from = scheme == kNowhere ? 2 : scheme + 3;
  const std::size_t slash = address.find('/', from);
  return std::string(address.substr(0, slash)) + "/";
}

FoundLinks ScanLinks(std::string_view page, std::string_view base) {
  FoundLinks found;
  std::size_t bytes = 0;
  std::size_t end = 0;  // the next ">", kept from anchor to anchor while it lies ahead
  for (std::size_t at = page.find(kAnchor); at != kNowhere; at = page.find(kAnchor, at)) {
    at = std::min(at + kAnchor.size() + 1, page.size());
    if (end < at) {
      end = page.find('>', at);
    }
    if (end == kNowhere) {
      found.complete = false;
      return found;
    }
    const std::size_t length = end - at;
    const std::string_view target = WithoutParents(page.substr(at, length == 0 ? 0 : length - 1));
    const bool whole = target.find("://") != kNowhere;
    bytes += target.size() + (whole ? 0 : base.size());
    if (bytes > kMostLinkBytes) {
      return found;
    }
    std::string& link = found.links.emplace_back();
    if (!whole) {
      link = base;
    }
    link += target;
  }
  return found;
}

}  // namespace tallyo
