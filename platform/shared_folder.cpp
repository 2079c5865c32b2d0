#include "platform/shared_folder.h"

#include <fcntl.h>
#include <sys/stat.h>

#include "platform/file_descriptor.h"

namespace tallyo {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kGroup = S_IRGRP | S_IWGRP;
constexpr mode_t kOthers = S_IROTH | S_IWOTH;

// A group that is not the folder's has no part in it, unless everybody has.
mode_t GrantedIn(const struct stat& folder, gid_t groupOfFile) {
  if ((folder.st_mode & S_ISVTX) != 0) {
    return 0;
  }
  if ((folder.st_mode & S_IWOTH) != 0) {
    return kGroup | kOthers;
  }
  return (folder.st_mode & S_IWGRP) != 0 && folder.st_gid == groupOfFile ? kGroup : 0;
}

fs::path FolderOf(const fs::path& path) {
  const fs::path folder = path.parent_path();
  return folder.empty() ? fs::path(".") : folder;
}

}  // namespace

void ShareFile(int descriptor, const fs::path& file) {
  struct stat made {};
  struct stat folder {};
  if (::fstat(descriptor, &made) != 0 || ::stat(FolderOf(file).c_str(), &folder) != 0) {
    return;
  }
  mode_t granted = GrantedIn(folder, made.st_gid);
  if (S_ISDIR(made.st_mode)) {
    granted |= granted >> 1U & (S_IXGRP | S_IXOTH);  // who may write in a folder may enter it
  }
  const mode_t mode = made.st_mode & ~static_cast<mode_t>(S_IFMT);
  if ((mode | granted) != mode) {
    static_cast<void>(::fchmod(descriptor, mode | granted));
  }
}

void ShareFolder(const fs::path& folder) {
  const FileDescriptor made(
      ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  if (made.IsOpen()) {
    ShareFile(made.Number(), folder);
  }
}

}  // namespace tallyo
