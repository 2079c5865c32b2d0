#include "platform/work_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdio>

#include "platform/file_failure.h"
#include "platform/shared_folder.h"

namespace tallyo {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kFileMode = 0644;
constexpr const char* kWriting = "could not write";

}  // namespace

WorkFile::WorkFile(const fs::path& name, std::string_view content)
    : name_(name), descriptor_(OpenAtOnce(name, O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW)) {
  RequireRegularFile(kWriting, name_, descriptor_);
  ShareFile(descriptor_.Number(), name_);
  while (!content.empty()) {
    const ssize_t written = ::write(descriptor_.Number(), content.data(), content.size());
    if (written < 0 && errno != EINTR) {
      FailWith(kWriting, name_, errno);
    }
    if (written > 0) {
      content.remove_prefix(static_cast<std::size_t>(written));
    }
  }
}

// A file system that cannot begin early is waited for by Flush alone.
void WorkFile::BeginFlush() const {
  static_cast<void>(::sync_file_range(descriptor_.Number(), 0, 0, SYNC_FILE_RANGE_WRITE));
}

void WorkFile::Flush() const {
  if (::fsync(descriptor_.Number()) != 0) {
    FailWith(kWriting, name_, errno);
  }
}

void WorkFile::RenameTo(const fs::path& file) const {
  if (std::rename(name_.c_str(), file.c_str()) != 0) {
    FailWith("could not replace", file, errno);
  }
}

// File systems that cannot flush folders answer EINVAL.
void FlushFolder(const fs::path& folder) {
  const fs::path named = folder.empty() ? fs::path(".") : folder;
  const FileDescriptor descriptor(::open(named.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!descriptor.IsOpen() || (::fsync(descriptor.Number()) != 0 && errno != EINVAL)) {
    FailWith("could not flush", named, errno);
  }
}

FileDescriptor OpenAtOnce(const fs::path& file, int flags) {
  return FileDescriptor(::open(file.c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, kFileMode));
}

void RequireRegularFile(const char* action, const fs::path& file,
                        const FileDescriptor& descriptor) {
  struct stat status {};
  if (!descriptor.IsOpen() || ::fstat(descriptor.Number(), &status) != 0) {
    FailWith(action, file, errno);
  }
  if (!S_ISREG(status.st_mode)) {
    FailWith(action, file, S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
  }
}

}  // namespace tallyo
