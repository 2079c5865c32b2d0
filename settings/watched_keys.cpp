#include "settings/watched_keys.h"

#include <algorithm>

namespace tallyo {
namespace {

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// Whether a key is another one or lies below it. The empty path is the hive.
bool IsWithin(std::string_view path, std::string_view root) {
  return root.empty() ||
         (path.size() >= root.size() && (path.size() == root.size() || path[root.size()] == '\\') &&
          std::equal(root.begin(), root.end(), path.begin(),
                     [](char one, char other) { return Lower(one) == Lower(other); }));
}

}  // namespace

std::int64_t WatchedKeys::ChangesBelow(Hive hive, std::string_view path) {
  const auto known = std::ranges::find_if(watched_, [&](const Watched& watched) {
    return watched.hive == hive && watched.path == path;
  });
  if (known != watched_.end()) {
    return known->changes;
  }
  watched_.push_back({.hive = hive, .path = std::string(path)});
  return 0;
}

void WatchedKeys::NoteChange(Hive hive, std::string_view path) {
  for (Watched& watched : watched_) {
    if (watched.hive == hive && IsWithin(path, watched.path)) {
      ++watched.changes;
    }
  }
}

void WatchedKeys::NoteTreeChange(Hive hive, std::string_view path) {
  for (Watched& watched : watched_) {
    if (watched.hive == hive && (IsWithin(path, watched.path) || IsWithin(watched.path, path))) {
      ++watched.changes;
    }
  }
}

void WatchedKeys::NoteAnyChange() {
  for (Watched& watched : watched_) {
    ++watched.changes;
  }
}

}  // namespace tallyo
