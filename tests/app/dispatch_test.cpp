#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/program.h"
#include "platform/transport_failure.h"
#include "tests/support/test_program.h"
#include "text/runtime_error.h"

namespace tallyo {
namespace {

TEST(Dispatch, DropsTheRestOfAnEventThatFailsAndGoesOn) {
  test::TestProgram program;
  program.Start();
  const std::function<void()> failures[] = {
      [] { throw RuntimeError("overflow"); },
      [] { throw TransportFailure(TransportFailure::Reason::Failed, "no connection"); },
      [&] { program.P().screens.ShowScreen(9); },
  };
  int before = 0;
  int after = 0;
  for (const auto& fail : failures) {
    EXPECT_FALSE(program.P().Dispatch([&] {
      ++before;
      fail();
      ++after;
    }));
  }
  EXPECT_EQ(before, 3);
  EXPECT_EQ(after, 0);
  EXPECT_THAT(program.Boxes().Texts(), testing::IsEmpty());
  EXPECT_TRUE(program.P().Dispatch([&] { ++after; }));
  EXPECT_EQ(after, 1);
  EXPECT_FALSE(program.P().Ended());
}

}  // namespace
}  // namespace tallyo
