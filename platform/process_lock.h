#pragma once

#include <filesystem>

namespace tallyo {

// The right to change one AppDir, held by one program at a time through a lock on its
// Data/.lock. The lock goes with the process, however that ends; the file stays.
class ProcessLock {
 public:
  enum class Outcome {
    Taken,
    HeldByAnother,
    Unavailable,  // the folder or the file cannot be made: there is nothing to guard either
  };

  // Makes AppDir and AppDir/Data where they are missing, and tries once, without waiting.
  explicit ProcessLock(const std::filesystem::path& appDir);
  ~ProcessLock();
  ProcessLock(const ProcessLock&) = delete;
  ProcessLock& operator=(const ProcessLock&) = delete;

  [[nodiscard]] Outcome Result() const { return outcome_; }

 private:
  int file_ = -1;
  Outcome outcome_ = Outcome::Unavailable;
};

}  // namespace tallyo
