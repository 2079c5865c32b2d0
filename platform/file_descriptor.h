#pragma once

#include <unistd.h>

namespace tallyo {

// Owns one open file of the system; below 0 where opening failed.
class FileDescriptor {
 public:
  explicit FileDescriptor(int number) : number_(number) {}
  ~FileDescriptor() {
    if (number_ >= 0) {
      ::close(number_);
    }
  }
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;

  [[nodiscard]] bool IsOpen() const { return number_ >= 0; }
  [[nodiscard]] int Number() const { return number_; }

 private:
  int number_;
};

}  // namespace tallyo
