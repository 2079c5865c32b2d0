#include "settings/sqlite_opening.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "settings/sqlite_store.h"
#include "settings/value_text.h"
#include "tests/support/temp_folder.h"

namespace tallyo {
namespace {

namespace fs = std::filesystem;

constexpr Hive kHive = Hive::LocalMachine;

class SqliteOpening : public testing::Test {
 protected:
  // The names in the folder.
  [[nodiscard]] std::vector<std::string> Listing() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_.Path())) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }
  [[nodiscard]] std::string Content() const {
    std::ifstream stream(file_, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  void Fill(const std::string& content) const {
    std::ofstream(file_, std::ios::binary | std::ios::trunc) << content;
  }
  void Execute(const char* sql) const {
    const SqliteConnection database =
        ConnectSqlite(file_.string(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    ExecuteSqlite(*database, sql);
  }
  void Store(const std::string& name, const std::string& text) const {
    SqliteStore store(file_, StoreAccess::ReadWrite);
    ASSERT_EQ(store.Problem(), "");
    SetSettingValue(store, kHive, "Key", name, text);
  }
  // Leaves the files that a killed program leaves, with one more setting in the log alone.
  void StoreAndBeKilled(const std::string& name, const std::string& text) const {
    const pid_t child = ::fork();
    if (child == 0) {
      SqliteStore store(file_, StoreAccess::ReadWrite);
      SetSettingValue(store, kHive, "Key", name, text);
      ::kill(::getpid(), SIGKILL);
    }
    ::waitpid(child, nullptr, 0);
  }
  // Reads without the right to write, and checks that nothing comes of it in the folder.
  [[nodiscard]] std::string ReadOnly(const std::string& name) const {
    const std::vector<std::string> before = Listing();
    std::string text;
    {
      SqliteStore store(file_, StoreAccess::ReadOnly);
      EXPECT_EQ(store.Problem(), "");
      text = QuerySettingValue(store, kHive, "Key", name);
      SetSettingValue(store, kHive, "Key", name, "must not be written");
      EXPECT_EQ(QuerySettingValue(store, kHive, "Key", name), text);
      EXPECT_EQ(store.Stamp(), store.Stamp());
      EXPECT_EQ(Listing(), before);
    }
    EXPECT_EQ(Listing(), before);
    return text;
  }

  test::TempFolder folder_;
  fs::path file_ = folder_.Path() / "settings 100%?#.db";
};

TEST_F(SqliteOpening, ReadOnlyMakesNothing) {
  EXPECT_EQ(ReadOnly("v"), "");
  Fill("");
  EXPECT_EQ(ReadOnly("v"), "");
  Store("v", "closed");
  EXPECT_EQ(Listing().size(), 1U);
  EXPECT_EQ(ReadOnly("v"), "closed");
  file_ = folder_.Path() / "missing" / "settings.db";
  EXPECT_EQ(ReadOnly("v"), "");
}

TEST_F(SqliteOpening, ReadOnlySeesTheLastWordOfAKilledProgram) {
  Store("v", "before");
  StoreAndBeKilled("v", "last word");
  EXPECT_EQ(Listing().size(), 3U);
  EXPECT_EQ(ReadOnly("v"), "last word");
  // As in a copy of the folder that leaves out the index.
  fs::remove(file_.string() + "-shm");
  EXPECT_EQ(ReadOnly("v"), "last word");
  Store("other", "x");
  EXPECT_EQ(ReadOnly("v"), "last word");
}

TEST_F(SqliteOpening, LeavesForeignFilesAsTheyAre) {
  const std::vector<std::function<void()>> makers = {
      [&] { Fill("SQLite format 3"); },
      [&] { Fill(std::string(5000, 'x')); },
      [&] { Fill(std::string("SQLite format 3\0", 16) + std::string(5000, 'x')); },
      [&] { Execute("CREATE TABLE keys (path); PRAGMA journal_mode = WAL"); },
      [&] { Execute("PRAGMA application_id = 1"); },
  };
  for (std::size_t i = 0; i < makers.size(); ++i) {
    fs::remove(file_);
    makers[i]();
    const std::string content = Content();
    for (const StoreAccess access : {StoreAccess::ReadWrite, StoreAccess::ReadOnly}) {
      SqliteStore store(file_, access);
      EXPECT_NE(store.Problem(), "") << i;
      EXPECT_EQ(store.Problem().find('\n'), std::string::npos);
      store.CreateKey(kHive, "Key");
      EXPECT_FALSE(store.Write(kHive, "", "v", StringValue("x")));
      EXPECT_TRUE(store.ReadTree(kHive, "").empty());
    }
    EXPECT_TRUE(Content() == content) << i;
    EXPECT_EQ(Listing().size(), 1U) << i;
  }
}

TEST_F(SqliteOpening, SaysWhyAStoreCannotBeUsed) {
  const auto problem = [&] { return SqliteStore(file_, StoreAccess::ReadWrite).Problem(); };
  Store("v", "x");
  Execute("PRAGMA user_version = 2");
  EXPECT_THAT(problem(), testing::HasSubstr("newer"));
  SqliteStore newer(file_, StoreAccess::ReadOnly);
  EXPECT_EQ(QuerySettingValue(newer, kHive, "Key", "v"), "");
  Execute("PRAGMA user_version = 1; DROP TABLE \"values\"");
  EXPECT_THAT(problem(), testing::HasSubstr("is damaged"));
  file_ = folder_.Path();
  EXPECT_THAT(problem(), testing::HasSubstr("no file"));
  EXPECT_THAT(SqliteStore(file_, StoreAccess::ReadOnly).Problem(), testing::HasSubstr("no file"));
  file_ = folder_.Path() / "missing" / "settings.db";
  EXPECT_EQ(problem(), "the settings store " + file_.string() +
                           " cannot be written: unable to open database file");
}

TEST_F(SqliteOpening, ReadsWhatItMayNotWrite) {
  if (::geteuid() == 0) {
    GTEST_SKIP() << "nothing is forbidden to root";
  }
  Store("v", "x");
  StoreAndBeKilled("v", "last word");
  constexpr fs::perms kWrite = fs::perms::owner_write;
  for (const fs::path& locked : {file_, folder_.Path()}) {
    for (const char* gone : {"", "-shm", "-wal"}) {
      fs::remove(*gone == '\0' ? folder_.Path() / "none" : fs::path(file_.string() + gone));
      const std::vector<std::string> before = Listing();
      fs::permissions(locked, kWrite, fs::perm_options::remove);
      {
        SqliteStore store(file_, StoreAccess::ReadWrite);
        EXPECT_NE(QuerySettingValue(store, kHive, "Key", "v"), "");
      }
      EXPECT_NE(ReadOnly("v"), "");
      fs::permissions(locked, kWrite, fs::perm_options::add);
    }
    StoreAndBeKilled("v", "last word");
  }
}

// SQLite gives its log and index the permissions of the database.
TEST_F(SqliteOpening, LetsAllWriteWhoMayWriteInTheFolder) {
  fs::permissions(folder_.Path(), fs::perms::all);
  const SqliteStore store(file_, StoreAccess::ReadWrite);
  EXPECT_EQ(store.Problem(), "");
  for (const auto& entry : fs::directory_iterator(folder_.Path())) {
    EXPECT_EQ(entry.status().permissions(), static_cast<fs::perms>(0666)) << entry.path();
  }
  EXPECT_EQ(Listing().size(), 3U);
}

}  // namespace
}  // namespace tallyo
