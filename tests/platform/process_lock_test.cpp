#include "platform/process_lock.h"

#include <gtest/gtest.h>

#include <fstream>

#include "tests/support/temp_folder.h"

namespace tallyo {
namespace {

using Outcome = ProcessLock::Outcome;

TEST(ProcessLock, IsHeldByOneAtATimeWhereItsFileCanBeMade) {
  const test::TempFolder folder;
  const auto appDir = folder.Path() / "home" / "tallyo";
  {
    const ProcessLock lock(appDir);
    EXPECT_EQ(lock.Result(), Outcome::Taken);
    EXPECT_EQ(ProcessLock(appDir).Result(), Outcome::HeldByAnother);
    EXPECT_EQ(ProcessLock(folder.Path()).Result(), Outcome::Taken);  // another AppDir
  }
  EXPECT_EQ(ProcessLock(appDir).Result(), Outcome::Taken);
  std::ofstream(folder.Path() / "file") << "x";
  EXPECT_EQ(ProcessLock(folder.Path() / "file").Result(), Outcome::Unavailable);
  std::filesystem::create_directories(folder.Path() / "locked" / "Data" / ".lock");
  EXPECT_EQ(ProcessLock(folder.Path() / "locked").Result(), Outcome::Unavailable);
}

}  // namespace
}  // namespace tallyo
