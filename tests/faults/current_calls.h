#pragma once

namespace tallyo::test {

class FailingCalls;

// Who sees the system calls now; null: nobody. It cannot be handed to the functions that stand
// before the C library's, whose shape is given.
FailingCalls*& CurrentCalls();

}  // namespace tallyo::test
