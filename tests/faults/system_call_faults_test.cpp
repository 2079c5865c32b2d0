#include <gtest/gtest.h>

#include <cerrno>

#include "tests/faults/sweep.h"

namespace tallyo::test {
namespace {

// Every operation is hit, and all of them together more than forty times.
void SweepAll(const Fault& fault) {
  Hits hits;
  Sweep({fault}, hits);
  EXPECT_GT(Sum(hits), 40);
  for (const Operation& operation : Operations()) {
    EXPECT_GT(hits[operation.name], 1) << operation.name;
  }
}

// Everything that takes space.
TEST(FaultsOfTheSystem, NoSpaceLosesNothingAndIsSurvived) {
  SweepAll({.name = "ENOSPC",
            .calls = {ENOSPC, {Call::Write, Call::Resize, Call::Make, Call::Rename, Call::Map}}});
}

TEST(FaultsOfTheSystem, NoSpaceForAllOfAWriteLosesNothingAndIsSurvived) {
  SweepAll({.name = "short write", .calls = {ENOSPC, {Call::Write}, true}});
}

TEST(FaultsOfTheSystem, ADiskThatFailsLosesNothingAndIsSurvived) {
  SweepAll({.name = "EIO while writing",
            .calls = {EIO,
                      {Call::Write, Call::Flush, Call::Resize, Call::Rename, Call::Delete,
                       Call::Make, Call::Close}}});
}

TEST(FaultsOfTheSystem, ADiskThatCannotBeReadLosesNothingAndIsSurvived) {
  SweepAll({.name = "EIO while reading",
            .calls = {EIO, {Call::Look, Call::Open, Call::Read, Call::Map}}});
}

// SQLite waits where another program holds a lock; one that holds it for good would take seconds.
TEST(FaultsOfTheSystem, ALockThatIsHeldLosesNothingAndIsSurvived) {
  SweepAll({.name = "EAGAIN", .calls = {EAGAIN, {Call::Lock}}, .onlyOnce = true});
}

TEST(FaultsOfTheSystem, NoRightLosesNothingAndIsSurvived) {
  SweepAll({.name = "EACCES",
            .calls = {EACCES, {Call::Open, Call::Look, Call::Make, Call::Rename, Call::Delete}}});
}

TEST(FaultsOfTheSystem, TooManyOpenFilesLoseNothingAndAreSurvived) {
  SweepAll({.name = "EMFILE", .calls = {EMFILE, {Call::Open}}});
}

}  // namespace
}  // namespace tallyo::test
