#include "platform/process_lock.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>

#include "tests/support/temp_folder.h"

namespace tallyo {
namespace {

using Outcome = ProcessLock::Outcome;

TEST(ProcessLock, IsHeldByOneAtATimeAndGoesWithAKilledProcess) {
  const test::TempFolder folder;
  const auto appDir = folder.Path() / "home" / "tallyo";
  int ready[2];
  ASSERT_EQ(::pipe(ready), 0);
  const pid_t child = ::fork();
  if (child == 0) {
    const ProcessLock lock(appDir);
    const char taken = lock.Result() == Outcome::Taken ? 'y' : 'n';
    static_cast<void>(!::write(ready[1], &taken, 1));
    for (;;) {
      ::pause();
    }
  }
  char taken = 0;
  EXPECT_EQ(::read(ready[0], &taken, 1), 1);
  EXPECT_EQ(taken, 'y');
  EXPECT_EQ(ProcessLock(appDir).Result(), Outcome::HeldByAnother);
  EXPECT_EQ(ProcessLock(folder.Path()).Result(), Outcome::Taken);  // another AppDir
  ::kill(child, SIGKILL);
  ::waitpid(child, nullptr, 0);
  EXPECT_EQ(ProcessLock(appDir).Result(), Outcome::Taken);
  EXPECT_EQ(ProcessLock(appDir).Result(), Outcome::Taken);  // again, in one program
  ::close(ready[0]);
  ::close(ready[1]);
}

TEST(ProcessLock, IsUnavailableWhereItsFileCannotBeMade) {
  const test::TempFolder folder;
  std::ofstream(folder.Path() / "file") << "x";
  EXPECT_EQ(ProcessLock(folder.Path() / "file").Result(), Outcome::Unavailable);
  std::filesystem::create_directories(folder.Path() / "Data" / ".lock");
  EXPECT_EQ(ProcessLock(folder.Path()).Result(), Outcome::Unavailable);
}

}  // namespace
}  // namespace tallyo
