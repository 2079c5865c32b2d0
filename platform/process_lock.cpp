#include "platform/process_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "platform/shared_folder.h"

namespace tallyo {
namespace {

constexpr mode_t kLockMode = 0644;

}  // namespace

ProcessLock::ProcessLock(const std::filesystem::path& appDir) {
  const std::filesystem::path folder = appDir / "Data";
  std::error_code failure;
  if (std::filesystem::create_directories(folder, failure)) {
    ShareFolder(folder);
  }
  if (failure) {
    return;
  }
  file_ = ::open((folder / ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOCTTY,
                 kLockMode);
  if (file_ < 0) {
    return;
  }
  ShareFile(file_, folder / ".lock");
  if (::flock(file_, LOCK_EX | LOCK_NB) == 0) {
    outcome_ = Outcome::Taken;
  } else if (errno == EWOULDBLOCK) {
    outcome_ = Outcome::HeldByAnother;
  }
}

ProcessLock::~ProcessLock() {
  if (file_ >= 0) {
    ::close(file_);
  }
}

}  // namespace tallyo
