#include <algorithm>
#include <cstddef>

#include "platform/files.h"

namespace tallyo {
namespace {

constexpr std::size_t kLongestNameBytes = 255;

bool IsNameByte(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 0x20 && byte != 0x7F && c != '/' && c != '\\';
}

}  // namespace

bool IsFileName(std::string_view name) {
  return !name.empty() && name != "." && name != ".." && name.size() <= kLongestNameBytes &&
         std::all_of(name.begin(), name.end(), IsNameByte);
}

}  // namespace tallyo
