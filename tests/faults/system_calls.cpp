// The functions of the C library that the program and SQLite call for files, each of which asks
// first whether it is to fail.
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdarg>
#include <cstdio>

#include "tests/faults/failing_calls.h"

namespace tallyo::test {

FailingCalls*& FailingCalls::Current() {
  static FailingCalls* current = nullptr;
  return current;
}

namespace {

// The C library's own function, which stands behind the one of this file.
template <typename Function>
Function* Real(const char* name) {
  return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

template <typename File>
bool Fails(Call call, File file) {
  return FailingCalls::Current() != nullptr && FailingCalls::Current()->Fails(call, file);
}

template <typename Open>
int OpenOne(Open* real, const char* path, int flags, mode_t mode) {
  if (Fails(Call::Open, path)) return -1;
  const int descriptor = real(path, flags, mode);
  if (FailingCalls::Current() != nullptr) FailingCalls::Current()->Opened(path, descriptor);
  return descriptor;
}

template <typename Work>
ssize_t WriteSome(int descriptor, std::size_t size, const Work& work) {
  if (FailingCalls::Current() != nullptr && FailingCalls::Current()->FailsToWrite(descriptor, size))
    return -1;
  return work(size);
}

// The third argument of a call that may have none.
template <typename Value>
Value Third(va_list list, bool given) {
  return given ? va_arg(list, Value) : Value{};
}

}  // namespace
}  // namespace tallyo::test

using tallyo::test::Call;
using tallyo::test::Fails;
using tallyo::test::Real;

extern "C" {

int open(const char* path, int flags, ...) {
  static auto* const real = Real<decltype(::open)>("open");
  va_list list;
  va_start(list, flags);
  const auto mode = tallyo::test::Third<mode_t>(list, (flags & (O_CREAT | O_TMPFILE)) != 0);
  va_end(list);
  return tallyo::test::OpenOne(real, path, flags, mode);
}

int open64(const char* path, int flags, ...) {
  static auto* const real = Real<decltype(::open64)>("open64");
  va_list list;
  va_start(list, flags);
  const auto mode = tallyo::test::Third<mode_t>(list, (flags & (O_CREAT | O_TMPFILE)) != 0);
  va_end(list);
  return tallyo::test::OpenOne(real, path, flags, mode);
}

int close(int descriptor) {
  static auto* const real = Real<decltype(::close)>("close");
  const bool fails = Fails(Call::Close, descriptor);
  if (auto* const calls = tallyo::test::FailingCalls::Current()) calls->Closed(descriptor);
  const int result = real(descriptor);
  return fails ? -1 : result;
}

int fcntl64(int descriptor, int command, ...) {
  static auto* const real = Real<decltype(::fcntl64)>("fcntl64");
  va_list list;
  va_start(list, command);
  void* const argument = va_arg(list, void*);
  va_end(list);
  const bool locks =
      command == F_SETLK && static_cast<const struct flock*>(argument)->l_type != F_UNLCK;
  return locks && Fails(Call::Lock, descriptor) ? -1 : real(descriptor, command, argument);
}

ssize_t read(int descriptor, void* bytes, size_t size) {
  static auto* const real = Real<decltype(::read)>("read");
  return Fails(Call::Read, descriptor) ? -1 : real(descriptor, bytes, size);
}

ssize_t pread64(int descriptor, void* bytes, size_t size, off64_t at) {
  static auto* const real = Real<decltype(::pread64)>("pread64");
  return Fails(Call::Read, descriptor) ? -1 : real(descriptor, bytes, size, at);
}

ssize_t write(int descriptor, const void* bytes, size_t size) {
  static auto* const real = Real<decltype(::write)>("write");
  return tallyo::test::WriteSome(descriptor, size,
                                 [&](size_t some) { return real(descriptor, bytes, some); });
}

ssize_t pwrite64(int descriptor, const void* bytes, size_t size, off64_t at) {
  static auto* const real = Real<decltype(::pwrite64)>("pwrite64");
  return tallyo::test::WriteSome(descriptor, size,
                                 [&](size_t some) { return real(descriptor, bytes, some, at); });
}

// What is to outlast the machine is no matter of these tests; nothing is waited for.
int fsync(int descriptor) { return Fails(Call::Flush, descriptor) ? -1 : 0; }
int fdatasync(int descriptor) { return Fails(Call::Flush, descriptor) ? -1 : 0; }

int ftruncate64(int descriptor, off64_t size) noexcept {
  static auto* const real = Real<decltype(::ftruncate64)>("ftruncate64");
  return Fails(Call::Resize, descriptor) ? -1 : real(descriptor, size);
}

void* mmap64(void* at, size_t size, int protection, int flags, int descriptor,
             off64_t offset) noexcept {
  static auto* const real = Real<decltype(::mmap64)>("mmap64");
  return Fails(Call::Map, descriptor) ? MAP_FAILED
                                      : real(at, size, protection, flags, descriptor, offset);
}

int fstat(int descriptor, struct stat* status) noexcept {
  static auto* const real = Real<int(int, struct stat*)>("fstat");
  return Fails(Call::Look, descriptor) ? -1 : real(descriptor, status);
}

int fstat64(int descriptor, struct stat64* status) noexcept {
  static auto* const real = Real<int(int, struct stat64*)>("fstat64");
  return Fails(Call::Look, descriptor) ? -1 : real(descriptor, status);
}

int stat(const char* path, struct stat* status) noexcept {
  static auto* const real = Real<int(const char*, struct stat*)>("stat");
  return Fails(Call::Look, path) ? -1 : real(path, status);
}

int stat64(const char* path, struct stat64* status) noexcept {
  static auto* const real = Real<int(const char*, struct stat64*)>("stat64");
  return Fails(Call::Look, path) ? -1 : real(path, status);
}

int mkdir(const char* path, mode_t mode) noexcept {
  static auto* const real = Real<decltype(::mkdir)>("mkdir");
  return Fails(Call::Make, path) ? -1 : real(path, mode);
}

int rename(const char* from, const char* to) noexcept {
  static auto* const real = Real<decltype(::rename)>("rename");
  return Fails(Call::Rename, from) ? -1 : real(from, to);
}

int unlink(const char* path) noexcept {
  static auto* const real = Real<decltype(::unlink)>("unlink");
  return Fails(Call::Delete, path) ? -1 : real(path);
}

}  // extern "C"
