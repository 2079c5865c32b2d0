#include "platform/shared_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/posix_files.h"
#include "platform/process_lock.h"
#include "tests/support/temp_folder.h"

namespace tallyo {
namespace {

mode_t ModeOf(const std::filesystem::path& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

struct Sharing {
  mode_t folder;
  mode_t file;
  mode_t madeFolder;
};

class SharedFolder : public ::testing::TestWithParam<Sharing> {
 protected:
  SharedFolder() : umask_(::umask(027)) { ::chmod(folder_.Path().c_str(), GetParam().folder); }
  ~SharedFolder() override { ::umask(umask_); }
  SharedFolder(const SharedFolder&) = delete;
  SharedFolder& operator=(const SharedFolder&) = delete;

  test::TempFolder folder_;

 private:
  mode_t umask_;
};

TEST_P(SharedFolder, GivesWhatIsMadeInItToThoseWhoMayWriteInIt) {
  PosixFiles files;
  const auto& folder = folder_.Path();
  files.Replace(folder / "kept", "x", folder / "work");
  files.MakeFolder(folder / "made");
  const ProcessLock lock(folder);
  EXPECT_EQ(ModeOf(folder / "kept"), GetParam().file);
  EXPECT_EQ(ModeOf(folder / "made"), GetParam().madeFolder);
  EXPECT_EQ(ModeOf(folder / "Data"), GetParam().madeFolder);
  EXPECT_EQ(ModeOf(folder / "Data" / ".lock"), GetParam().file);
}

INSTANTIATE_TEST_SUITE_P(Folders, SharedFolder,
                         ::testing::Values(Sharing{0755, 0640, 0750}, Sharing{0775, 0660, 0770},
                                           Sharing{02770, 0660, 02770}, Sharing{0777, 0666, 0777},
                                           Sharing{01777, 0640, 0750}));

}  // namespace
}  // namespace tallyo
