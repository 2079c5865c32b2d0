#pragma once

#include <sys/resource.h>

#include <csignal>

namespace tallyo::test {

// Makes writing past so many bytes of any file fail while it lives, as a full disk would.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, signal_);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  void (*signal_)(int);
  rlimit before_{};
};

}  // namespace tallyo::test
