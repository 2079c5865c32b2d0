#include "platform/shared_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/posix_files.h"
#include "platform/process_lock.h"
#include "tests/support/table.h"
#include "tests/support/temp_folder.h"

namespace tallyo {
namespace {

mode_t ModeOf(const std::filesystem::path& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

TEST(SharedFolder, GivesWhatIsMadeInItToThoseWhoMayWriteInIt) {
  const mode_t before = ::umask(027);
  const test::Table<mode_t, mode_t, mode_t> cases = {{0755, 0640, 0750},
                                                     {0775, 0660, 0770},
                                                     {02770, 0660, 02770},
                                                     {0777, 0666, 0777},
                                                     {01777, 0640, 0750}};
  for (const auto& [mode, file, madeFolder] : cases) {
    const test::TempFolder temporary;
    const auto& folder = temporary.Path();
    ::chmod(folder.c_str(), mode);
    PosixFiles files;
    files.Replace(folder / "kept", "x", folder / "work");
    files.MakeFolder(folder / "made");
    const ProcessLock lock(folder);
    EXPECT_EQ(ModeOf(folder / "kept"), file) << mode;
    EXPECT_EQ(ModeOf(folder / "made"), madeFolder) << mode;
    EXPECT_EQ(ModeOf(folder / "Data"), madeFolder) << mode;
    EXPECT_EQ(ModeOf(folder / "Data" / ".lock"), file) << mode;
  }
  ::umask(before);
}

}  // namespace
}  // namespace tallyo
