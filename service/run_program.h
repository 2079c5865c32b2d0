#pragma once

#include <functional>
#include <ostream>

namespace tallyo::service {

// The whole program: reads the command line, carries it out and returns the exit status. serve ends
// when waitForStop, called once the service answers, returns.
[[nodiscard]] int RunProgram(int count, const char* const* arguments, std::ostream& out,
                             std::ostream& err, const std::function<void()>& waitForStop);

}  // namespace tallyo::service
