#include "platform/posix_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <vector>

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
  for (int byte = 0; byte < 1 << 20; ++byte) {
    everyByte += static_cast<char>(byte % 256);
  }
  for (const std::string& content : {everyByte, std::string("short"), std::string()}) {
    Replace("file", content);
    EXPECT_EQ(Read("file"), content);
    EXPECT_FALSE(files_.Exists(At("tmp")));
  }
  files_.Delete(At("file"));
  EXPECT_FALSE(files_.Exists(At("file")));
  const std::string missing = " " + At("file").string() + ": No such file or directory";
  EXPECT_EQ(FailureOf([&] { static_cast<void>(Read("file")); }), "could not read" + missing);
  EXPECT_EQ(FailureOf([&] { files_.Delete(At("file")); }), "could not delete" + missing);
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
  EXPECT_EQ(Read("file"), "new") << "nothing of what the work file held";
  fs::create_symlink(At("file"), At("tmp"));
  EXPECT_THROW(Replace("other", "x"), RuntimeError);
  EXPECT_EQ(Read("file"), "new");
}

TEST_F(PosixFilesTest, ReplacesSeveralFilesWhateverBecomesOfTheOthers) {
  Replace("a", "old");
  fs::create_directory(At("folder"));
  const std::vector<bool> done = files_.ReplaceAll({{{At("a"), "new a", At("tmp")},
                                                     {At("missing/b"), "b", At("tmp-1")},
                                                     {At("c"), "c", At("missing/tmp-2")},
                                                     {At("folder"), "d", At("tmp-3")},
                                                     {At("e"), "", At("tmp-4")}}});
  EXPECT_THAT(done, testing::ElementsAre(true, false, false, false, true));
  EXPECT_EQ(Read("a") + "|" + Read("e"), "new a|");
  EXPECT_FALSE(files_.Exists(At("c")) || files_.Exists(At("tmp")));
}

TEST_F(PosixFilesTest, ReadsAndReplacesRegularFilesAlone) {
  for (int i = 0; i < 2; ++i) {
    files_.MakeFolder(At("folder"));
    EXPECT_TRUE(fs::is_directory(At("folder")));
  }
  Replace("x", "x");
  for (const std::string& name : {std::string("missing/folder"), std::string("x")}) {
    EXPECT_THROW(files_.MakeFolder(At(name)), RuntimeError);
  }
  ASSERT_EQ(::mkfifo(At("fifo").c_str(), 0600), 0);
  EXPECT_THAT(FailureOf([&] { Replace("folder", "x"); }), testing::HasSubstr("Is a directory"));
  for (const char* work : {"folder", "fifo", "missing/tmp"}) {
    EXPECT_THROW(files_.Replace(At("file"), "x", At(work)), RuntimeError) << work;
  }
  for (const char* file : {"fifo", "folder", "/dev/zero"}) {
    EXPECT_THROW(static_cast<void>(Read(file)), RuntimeError);
    EXPECT_FALSE(files_.Exists(At(file)));
  }
  EXPECT_FALSE(files_.Exists(At("file")));
}

TEST_F(PosixFilesTest, TakesWhatIsNoFileNameForMissing) {
  Replace("file", "x");
  for (const std::string& name :
       {std::string("a\\b"), std::string("a\nb"), std::string("a\x7F"), std::string("file\0", 5),
        std::string("file/"), std::string(".."), std::string("."), std::string(256, 'n')}) {
    EXPECT_FALSE(files_.Exists(At(name)));
    EXPECT_THAT(FailureOf([&] { static_cast<void>(Read(name)); }),
                testing::EndsWith("No such file or directory"));
    EXPECT_THROW(Replace(name, "y"), RuntimeError);
    EXPECT_THROW(files_.Replace(At("file"), "y", At(name)), RuntimeError);
    EXPECT_THROW(files_.Delete(At(name)), RuntimeError);
    EXPECT_FALSE(IsFileName(name));
  }
  EXPECT_THROW(files_.MakeFolder(At(std::string("a\0b", 3))), RuntimeError);
  EXPECT_FALSE(fs::exists(At("a")));
  EXPECT_EQ(Read("file"), "x");
  for (const std::string& name :
       {std::string("..."), std::string("My caf\xC3\xA9 a:b*?.\xE9"), std::string(255, 'n')}) {
    EXPECT_TRUE(IsFileName(name)) << name;
  }
}

}  // namespace
}  // namespace tallyo
