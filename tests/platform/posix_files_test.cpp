#include "platform/posix_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "tests/support/file_size_limit.h"
#include "tests/support/temp_folder.h"
#include "text/runtime_error.h"

namespace tallyo {
namespace {

namespace fs = std::filesystem;

class PosixFilesTest : public testing::Test {
 protected:
  [[nodiscard]] fs::path At(const std::string& name) const { return folder_.Path() / name; }
  void Replace(const std::string& name, const std::string& content) {
    files_.Replace(At(name), content, At("tmp"));
  }
  [[nodiscard]] std::string Read(const std::string& name) const { return files_.Read(At(name)); }

  // The text of the failure; "" where there is none.
  template <typename Work>
  static std::string FailureOf(Work work) {
    try {
      work();
    } catch (const RuntimeError& failure) {
      return failure.what();
    }
    return "";
  }

  test::TempFolder folder_;
  PosixFiles files_;
};

TEST_F(PosixFilesTest, ReadsTheBytesThatWereWritten) {
  std::string everyByte;
  for (int byte = 0; byte < 256; ++byte) {
    everyByte += static_cast<char>(byte);
  }
  std::string large;
  while (large.size() < std::size_t{1} << 20U) {
    large += everyByte;
  }
  for (const std::string& content : {std::string(), everyByte, large, std::string("short")}) {
    Replace("file", content);
    EXPECT_EQ(Read("file"), content);
    EXPECT_FALSE(files_.Exists(At("tmp")));
  }
}

TEST_F(PosixFilesTest, LeavesTheOldFileWhereTheNewOneCannotBeWritten) {
  Replace("file", "old");
  {
    const test::FileSizeLimit limit(1000);
    EXPECT_THAT(FailureOf([&] { Replace("file", std::string(2000, 'x')); }),
                testing::AllOf(testing::HasSubstr("tmp"), testing::HasSubstr("File too large")));
  }
  EXPECT_EQ(Read("file"), "old");
  Replace("file", "new");
  EXPECT_EQ(Read("file"), "new");
}

TEST_F(PosixFilesTest, ReplacesNothingButFiles) {
  files_.MakeFolder(At("folder"));
  EXPECT_THAT(FailureOf([&] { Replace("folder", "x"); }), testing::HasSubstr("Is a directory"));
  EXPECT_THROW(files_.Replace(At("file"), "x", At("folder")), RuntimeError);
  EXPECT_THROW(files_.Replace(At("file"), "x", At("missing/tmp")), RuntimeError);
  EXPECT_THROW(files_.Replace(At("missing/file"), "x", At("tmp")), RuntimeError);
  EXPECT_FALSE(files_.Exists(At("file")));
}

TEST_F(PosixFilesTest, WritesThroughNoLinkInPlaceOfTheWorkFile) {
  Replace("other", "precious");
  fs::create_symlink(At("other"), At("tmp"));
  EXPECT_THROW(Replace("file", "x"), RuntimeError);
  EXPECT_EQ(Read("other"), "precious");
}

TEST_F(PosixFilesTest, NamesTheFileAndTheReason) {
  const std::string missing = FailureOf([&] { static_cast<void>(Read("missing")); });
  EXPECT_EQ(missing, "could not read " + At("missing").string() + ": No such file or directory");
  EXPECT_EQ(FailureOf([&] { files_.Delete(At("missing")); }),
            "could not delete " + At("missing").string() + ": No such file or directory");
}

TEST_F(PosixFilesTest, ReadsRegularFilesAlone) {
  ASSERT_EQ(::mkfifo(At("fifo").c_str(), 0600), 0);
  EXPECT_THROW(static_cast<void>(Read("fifo")), RuntimeError);
  EXPECT_THROW(files_.Replace(At("file"), "x", At("fifo")), RuntimeError);
  EXPECT_THROW(static_cast<void>(files_.Read("/dev/zero")), RuntimeError);
  EXPECT_THROW(static_cast<void>(files_.Read(folder_.Path())), RuntimeError);
  EXPECT_FALSE(files_.Exists(At("fifo")));
  EXPECT_FALSE(files_.Exists(folder_.Path()));
}

TEST_F(PosixFilesTest, ReadsNoFileThatMayNotBeRead) {
  if (::geteuid() == 0) {
    GTEST_SKIP() << "nothing is forbidden to root";
  }
  Replace("file", "secret");
  fs::permissions(At("file"), fs::perms::none);
  EXPECT_THAT(FailureOf([&] { static_cast<void>(Read("file")); }),
              testing::HasSubstr("Permission denied"));
}

TEST_F(PosixFilesTest, TakesWhatIsNoFileNameForMissing) {
  Replace("file", "x");
  const std::string names[] = {"a\\b", "a\nb", std::string("file\0", 5), "file/",
                               "..",   "",     std::string(256, 'n')};
  for (const std::string& name : names) {
    EXPECT_FALSE(files_.Exists(At(name)));
    EXPECT_THAT(FailureOf([&] { static_cast<void>(Read(name)); }),
                testing::EndsWith("No such file or directory"));
    EXPECT_THROW(Replace(name, "y"), RuntimeError);
    EXPECT_THROW(files_.Replace(At("file"), "y", At(name)), RuntimeError);
    EXPECT_THROW(files_.Delete(At(name)), RuntimeError);
  }
  EXPECT_EQ(Read("file"), "x");
}

TEST_F(PosixFilesTest, MakesOneFolder) {
  files_.MakeFolder(At("folder"));
  files_.MakeFolder(At("folder"));
  EXPECT_TRUE(fs::is_directory(At("folder")));
  EXPECT_THROW(files_.MakeFolder(At("missing/folder")), RuntimeError);
  Replace("file", "x");
  EXPECT_THROW(files_.MakeFolder(At("file")), RuntimeError);
  EXPECT_THROW(files_.MakeFolder(At(std::string("a\0b", 3))), RuntimeError);
  EXPECT_FALSE(fs::exists(At("a")));
}

TEST_F(PosixFilesTest, DeletesAFile) {
  Replace("file", "x");
  EXPECT_TRUE(files_.Exists(At("file")));
  files_.Delete(At("file"));
  EXPECT_FALSE(files_.Exists(At("file")));
}

TEST(IsFileName, TakesOneNameOfOneFile) {
  for (const std::string name : {"a", "My Setup.exp", "...", "caf\xC3\xA9", "\xE9", "a:b*?"}) {
    EXPECT_TRUE(IsFileName(name)) << name;
  }
  EXPECT_TRUE(IsFileName(std::string(255, 'n')));
  EXPECT_FALSE(IsFileName(std::string(256, 'n')));
  for (const std::string name : {"", ".", "..", "a/b", "/", "a\\b", "a\tb", "a\x7F"}) {
    EXPECT_FALSE(IsFileName(name)) << name;
  }
  EXPECT_FALSE(IsFileName(std::string("a\0b", 3)));
}

}  // namespace
}  // namespace tallyo
