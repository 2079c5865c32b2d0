#include "platform/posix_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <system_error>

#include "platform/file_descriptor.h"
#include "text/runtime_error.h"

namespace tallyo {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kFileMode = 0644;
constexpr mode_t kFolderMode = 0755;

[[noreturn]] void Fail(const char* action, const fs::path& path, int error) {
  throw RuntimeError(std::string(action) + " " + path.c_str() + ": " +
                     std::generic_category().message(error));
}

// The system would cut a path at a NUL byte and take another file.
bool HoldsNul(const fs::path& path) { return path.native().find('\0') != std::string::npos; }

bool CanNameFile(const fs::path& file) {
  return !HoldsNul(file) && IsFileName(file.filename().native());
}

void RequireFileName(const char* action, const fs::path& file) {
  if (!CanNameFile(file)) {
    Fail(action, file, ENOENT);
  }
}

// Without waiting for the other end of a FIFO.
int Open(const fs::path& file, int flags) {
  return ::open(file.c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, kFileMode);
}

void RequireRegularFile(const char* action, const fs::path& file,
                        const FileDescriptor& descriptor) {
  struct stat status {};
  if (!descriptor.IsOpen() || ::fstat(descriptor.Number(), &status) != 0) {
    Fail(action, file, errno);
  }
  if (!S_ISREG(status.st_mode)) {
    Fail(action, file, S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
  }
}

void WriteWhole(const fs::path& file, std::string_view content) {
  const char* const action = "could not write";
  const FileDescriptor descriptor(Open(file, O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW));
  RequireRegularFile(action, file, descriptor);
  while (!content.empty()) {
    const ssize_t written = ::write(descriptor.Number(), content.data(), content.size());
    if (written < 0 && errno != EINTR) {
      Fail(action, file, errno);
    }
    if (written > 0) {
      content.remove_prefix(static_cast<std::size_t>(written));
    }
  }
  if (::fsync(descriptor.Number()) != 0) {
    Fail(action, file, errno);
  }
}

// Makes a rename in the folder last. File systems that cannot flush folders answer EINVAL.
void FlushFolder(const fs::path& folder) {
  const fs::path named = folder.empty() ? fs::path(".") : folder;
  const FileDescriptor descriptor(::open(named.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!descriptor.IsOpen() || (::fsync(descriptor.Number()) != 0 && errno != EINVAL)) {
    Fail("could not flush", named, errno);
  }
}

}  // namespace

void PosixFiles::MakeFolder(const fs::path& folder) {
  const char* const action = "could not make the folder";
  if (HoldsNul(folder)) {
    Fail(action, folder, ENOENT);
  }
  if (::mkdir(folder.c_str(), kFolderMode) == 0) {
    return;
  }
  const int error = errno;
  std::error_code ignored;
  if (error != EEXIST || !fs::is_directory(folder, ignored)) {
    Fail(action, folder, error);
  }
}

bool PosixFiles::Exists(const fs::path& file) const {
  std::error_code ignored;
  return CanNameFile(file) && fs::is_regular_file(file, ignored);
}

std::string PosixFiles::Read(const fs::path& file, std::size_t maxBytes) const {
  const char* const action = "could not read";
  RequireFileName(action, file);
  const FileDescriptor descriptor(Open(file, O_RDONLY));
  RequireRegularFile(action, file, descriptor);
  std::string content;
  std::array<char, std::size_t{64} * 1024> buffer{};
  for (;;) {
    const ssize_t count = ::read(descriptor.Number(), buffer.data(), buffer.size());
    if (count == 0) {
      return content;
    }
    if (count < 0 && errno != EINTR) {
      Fail(action, file, errno);
    }
    if (count > 0) {
      content.append(buffer.data(), static_cast<std::size_t>(count));
      if (content.size() > maxBytes) {
        Fail(action, file, EFBIG);
      }
    }
  }
}

void PosixFiles::Replace(const fs::path& file, std::string_view content, const fs::path& workFile) {
  RequireFileName("could not write", file);
  RequireFileName("could not write", workFile);
  WriteWhole(workFile, content);
  if (std::rename(workFile.c_str(), file.c_str()) != 0) {
    Fail("could not replace", file, errno);
  }
  FlushFolder(file.parent_path());
}

void PosixFiles::Delete(const fs::path& file) {
  const char* const action = "could not delete";
  RequireFileName(action, file);
  if (::unlink(file.c_str()) != 0) {
    Fail(action, file, errno);
  }
}

}  // namespace tallyo
