#pragma once

#include <sys/types.h>

namespace tallyo::bench {

// The processor time that all threads of a process have used. Throws std::runtime_error.
[[nodiscard]] double ProcessorSeconds(pid_t process);

// The memory of a process that is in RAM, shared libraries included. Throws std::runtime_error.
[[nodiscard]] double ResidentMegabytes(pid_t process);

}  // namespace tallyo::bench
