#include "tests/support/temp_folder.h"

#include <cerrno>
#include <cstdlib>
#include <string>
#include <system_error>

namespace tallyo::test {
namespace {

namespace fs = std::filesystem;

// A test may have taken away the right to look into a folder or to delete from it.
void OpenFolders(const fs::path& folder) {
  std::error_code ignored;
  fs::permissions(folder, fs::perms::owner_all, fs::perm_options::add, ignored);
  for (const fs::directory_entry& entry : fs::directory_iterator(folder, ignored)) {
    if (entry.is_directory(ignored) && !entry.is_symlink(ignored)) {
      OpenFolders(entry.path());
    }
  }
}

}  // namespace

TempFolder::TempFolder() {
  std::string pattern = (fs::temp_directory_path() / "tallyo-test-XXXXXX").string();
  if (::mkdtemp(pattern.data()) == nullptr) {
    throw std::system_error(errno, std::generic_category(), pattern);
  }
  path_ = pattern;
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  OpenFolders(path_);
  fs::remove_all(path_, ignored);
}

}  // namespace tallyo::test
