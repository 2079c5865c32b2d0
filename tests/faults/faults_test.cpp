#include <gtest/gtest.h>

#include <cerrno>

#include "tests/faults/sweep.h"

namespace tallyo::test {
namespace {

TEST(FaultsOfAnInterface, InTheStoreLoseNothingAndAreSurvived) {
  Sweep({{.name = "full", .store = StoreFault::Full},
         {.name = "busy", .store = StoreFault::Busy},
         {.name = "unreadable", .store = StoreFault::Unreadable}},
        5);
}

TEST(FaultsOfAnInterface, InTheTransferLoseNothingAndAreSurvived) {
  Sweep({{.name = "lost", .transfer = TransferFault::Lost},
         {.name = "lost answer", .transfer = TransferFault::LostAnswer}},
        5, {"start", "export", "import", "quit"});
}

// Everything that takes space.
TEST(FaultsOfTheSystem, NoSpaceLosesNothingAndIsSurvived) {
  Sweep({{.name = "ENOSPC",
          .calls = {ENOSPC, {Call::Write, Call::Resize, Call::Make, Call::Rename, Call::Map}}}},
        1);
}

TEST(FaultsOfTheSystem, NoSpaceForAllOfAWriteLosesNothingAndIsSurvived) {
  Sweep({{.name = "short write", .calls = {ENOSPC, {Call::Write}, true}}}, 1);
}

TEST(FaultsOfTheSystem, ADiskThatFailsLosesNothingAndIsSurvived) {
  Sweep({{.name = "EIO while writing",
          .calls = {EIO,
                    {Call::Write, Call::Flush, Call::Resize, Call::Rename, Call::Delete, Call::Make,
                     Call::Close}}}},
        1);
}

TEST(FaultsOfTheSystem, ADiskThatCannotBeReadLosesNothingAndIsSurvived) {
  Sweep({{.name = "EIO while reading",
          .calls = {EIO, {Call::Look, Call::Open, Call::Read, Call::Map}}}},
        1);
}

// SQLite waits where another program holds a lock; one that holds it for good would take seconds.
TEST(FaultsOfTheSystem, ALockThatIsHeldLosesNothingAndIsSurvived) {
  Sweep({{.name = "EAGAIN", .calls = {EAGAIN, {Call::Lock}}, .onlyOnce = true}}, 1);
}

TEST(FaultsOfTheSystem, NoRightLosesNothingAndIsSurvived) {
  Sweep({{.name = "EACCES",
          .calls = {EACCES, {Call::Open, Call::Look, Call::Make, Call::Rename, Call::Delete}}}},
        1);
}

TEST(FaultsOfTheSystem, TooManyOpenFilesLoseNothingAndAreSurvived) {
  Sweep({{.name = "EMFILE", .calls = {EMFILE, {Call::Open}}}}, 1);
}

}  // namespace
}  // namespace tallyo::test
