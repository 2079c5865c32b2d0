#include "platform/files.h"

#include <algorithm>
#include <cstddef>

#include "text/runtime_error.h"

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

std::vector<bool> Files::ReplaceAll(std::span<const Replacement> replacements) {
  std::vector<bool> done;
  for (const Replacement& wanted : replacements) {
    try {
      Replace(wanted.file, wanted.content, wanted.workFile);
      done.push_back(true);
    } catch (const RuntimeError&) {
      done.push_back(false);
    }
  }
  return done;
}

}  // namespace tallyo
