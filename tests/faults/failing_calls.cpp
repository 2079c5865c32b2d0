#include "tests/faults/failing_calls.h"

#include <cerrno>
#include <utility>

namespace tallyo::test {

FailingCalls::FailingCalls(std::string_view folder, FaultPlan& plan, CallFault fault)
    : folder_(folder), plan_(plan), fault_(std::move(fault)) {
  Current() = this;
}

FailingCalls::~FailingCalls() { Current() = nullptr; }

bool FailingCalls::Fails(Call call, const char* path) { return IsOurs(path) && Strikes(call); }

bool FailingCalls::Fails(Call call, int descriptor) { return IsOurs(descriptor) && Strikes(call); }

bool FailingCalls::FailsToWrite(int descriptor, std::size_t& size) {
  if (!IsOurs(descriptor)) return false;
  if (std::exchange(restFails_, false)) {
    errno = fault_.error;
    return true;
  }
  if (!Strikes(Call::Write)) return false;
  if (!fault_.halfWritten || size < 2) return true;
  size /= 2;
  restFails_ = true;
  return false;
}

void FailingCalls::Opened(const char* path, int descriptor) {
  if (descriptor >= 0 && IsOurs(path)) ours_.at(static_cast<std::size_t>(descriptor)) = true;
}

void FailingCalls::Closed(int descriptor) {
  if (IsOurs(descriptor)) ours_.at(static_cast<std::size_t>(descriptor)) = false;
}

bool FailingCalls::Strikes(Call call) {
  if (!fault_.calls.contains(call) || !plan_.Strikes()) return false;
  errno = fault_.error;
  return true;
}

bool FailingCalls::IsOurs(const char* path) const {
  return std::string_view(path).starts_with(folder_);
}

bool FailingCalls::IsOurs(int descriptor) const {
  return descriptor >= 0 && static_cast<std::size_t>(descriptor) < ours_.size() &&
         ours_.at(static_cast<std::size_t>(descriptor));
}

}  // namespace tallyo::test
