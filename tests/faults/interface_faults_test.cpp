#include <gtest/gtest.h>

#include "tests/faults/sweep.h"

namespace tallyo::test {
namespace {

TEST(FaultsOfAnInterface, InFilesLoseNothingAndAreSurvived) {
  Hits hits;
  Sweep({{.name = "refused", .files = FileFault::Refused},
         {.name = "cut short", .files = FileFault::CutShort},
         {.name = "unsure", .files = FileFault::Unsure}},
        hits);
  EXPECT_GT(Sum(hits), 60);
  for (const char* operation : {"start", "refresh", "export", "import", "quit"}) {
    EXPECT_GT(hits[operation], 5) << operation;
  }
}

TEST(FaultsOfAnInterface, InTheStoreLoseNothingAndAreSurvived) {
  Hits hits;
  Sweep({{.name = "full", .store = StoreFault::Full},
         {.name = "busy", .store = StoreFault::Busy},
         {.name = "unreadable", .store = StoreFault::Unreadable}},
        hits);
  for (const Operation& operation : Operations()) {
    EXPECT_GT(hits[operation.name], 5) << operation.name;
  }
}

TEST(FaultsOfAnInterface, InTheTransferLoseNothingAndAreSurvived) {
  Hits hits;
  Sweep({{.name = "lost", .transfer = TransferFault::Lost},
         {.name = "lost answer", .transfer = TransferFault::LostAnswer}},
        hits);
  for (const char* operation : {"refresh", "link add", "link removal"}) {
    EXPECT_GT(hits[operation], 5) << operation;
  }
}

}  // namespace
}  // namespace tallyo::test
