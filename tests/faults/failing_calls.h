#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <initializer_list>
#include <set>
#include <string>
#include <string_view>

#include "tests/support/fault_plan.h"

namespace tallyo::test {

// The kinds of system calls on files.
enum class Call { Look, Open, Make, Read, Write, Flush, Resize, Map, Lock, Rename, Delete, Close };

// What goes wrong, and with which calls.
struct CallFault {
  int error = 0;  // an errno; with 0 no call fails
  std::set<Call> calls = {};
  bool halfWritten = false;  // a write first takes half of what it is given, and fails at the rest
};

// Sees the system calls of the whole program on files below one folder, those of SQLite included,
// and has some of them fail. There is one at a time. Linked into a program, its functions stand
// before those of the C library.
class FailingCalls {
 public:
  // Who sees the system calls now; null: nobody. It cannot be handed to the functions that stand
  // before those of the C library, whose shape is given.
  static FailingCalls*& Current();

  FailingCalls(std::string_view folder, FaultPlan& plan, CallFault fault);
  ~FailingCalls();
  FailingCalls(const FailingCalls&) = delete;
  FailingCalls& operator=(const FailingCalls&) = delete;

  // Whether the call is to fail; errno is then set.
  [[nodiscard]] bool Fails(Call call, const char* path);
  [[nodiscard]] bool Fails(Call call, int descriptor);

  // How many bytes a write of so many may take; nothing where it fails.
  [[nodiscard]] bool FailsToWrite(int descriptor, std::size_t& size);

  void Opened(const char* path, int descriptor);
  void Closed(int descriptor);

 private:
  [[nodiscard]] bool Strikes(Call call);
  [[nodiscard]] bool IsOurs(const char* path) const;
  [[nodiscard]] bool IsOurs(int descriptor) const;

  std::string folder_;
  FaultPlan& plan_;
  CallFault fault_;
  bool restFails_ = false;
  // Other threads open and close descriptors too, though none of ours.
  std::array<std::atomic<bool>, 4096> ours_{};
};

}  // namespace tallyo::test
