#include "settings/sqlite_store.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "settings/value_text.h"
#include "tests/support/table.h"
#include "tests/support/temp_folder.h"

namespace tallyo {
namespace {

using std::string_literals::operator""s;

constexpr Hive kHive = Hive::LocalMachine;

class SqliteStoreTest : public testing::Test {
 protected:
  void Set(const std::string& key, const std::string& name, const std::string& text) {
    SetSettingValue(store_, kHive, key, name, text);
  }
  std::string Get(const std::string& key, const std::string& name) {
    return QuerySettingValue(store_, kHive, key, name);
  }
  // "key|name|text" of each value.
  std::vector<std::string> Tree(const std::string& key) {
    std::vector<std::string> lines;
    for (const StoredValue& value : store_.ReadTree(kHive, key)) {
      lines.push_back(value.key + "|" + value.name + "|" + TextOf(value.value));
    }
    return lines;
  }

  test::TempFolder folder_;
  std::filesystem::path file_ = folder_.Path() / "settings.db";
  SqliteStore store_{file_, StoreAccess::ReadWrite};
};

using Lines = std::vector<std::string>;

TEST_F(SqliteStoreTest, KeepsAnyBytesOfAnyType) {
  std::string everyByte;
  for (int byte = 0; byte < 256; ++byte) {
    everyByte += static_cast<char>(byte);
  }
  store_.CreateKey(kHive, "Key");
  SqliteStore other(file_, StoreAccess::ReadWrite);
  for (const TypedValue& value : {TypedValue{kStringType, ""}, TypedValue{0, everyByte},
                                  TypedValue{0xFFFFFFFF, std::string(100'000, '\0')}}) {
    EXPECT_TRUE(store_.Write(kHive, "Key", "name", value));
    EXPECT_EQ(other.Read(kHive, "Key", "name"), value);
    EXPECT_EQ(other.ReadTree(kHive, "Key").at(0).value, value);
  }
}

TEST_F(SqliteStoreTest, WritesIntoExistingKeysOnlyAndCreatesTheKeysAboveAKey) {
  EXPECT_FALSE(store_.Write(kHive, "A\\B", "name", StringValue("x")));
  EXPECT_FALSE(store_.KeyExists(kHive, "A\\B"));
  store_.CreateKey(kHive, "A\\B\\C\\");
  for (const char* key : {"", "A", "A\\B\\", "A\\B\\C"}) {
    EXPECT_TRUE(store_.KeyExists(kHive, key)) << key;
  }
  EXPECT_FALSE(store_.KeyExists(kHive, "B") || store_.KeyExists(kHive, "A\\B\\C\\\\"));
}

TEST_F(SqliteStoreTest, KeepsTheFirstSpellingAndIgnoresTheCaseOfAsciiLettersAlone) {
  Set("Soft\\Links", "Name", "1");
  Set("SOFT\\links\\New", "Other", "2");
  Set("soft\\LINKS\\", "NAME", "3");
  EXPECT_EQ(Tree("SOFT"), (Lines{"Soft\\Links|Name|3", "Soft\\Links\\New|Other|2"}));
  Set("Key", "\xC3\x84", "upper");
  EXPECT_EQ(Get("KEY", "\xC3\xA4"), "");
  Set("Key", "[", "bracket");
  EXPECT_EQ(Get("Key", "{"), "");
  Set("Key", "\xE9\xFF", "no UTF-8");
  EXPECT_EQ(Get("Key", "\xE9\xFF"), "no UTF-8");
}

TEST_F(SqliteStoreTest, HoldsValuesUnderTheHiveAndTakesNoPathForAName) {
  EXPECT_TRUE(store_.Write(kHive, "", "name", StringValue("root")));
  EXPECT_EQ(Get("\\", "NAME"), "root");
  store_.DeleteKey(kHive, "");
  Set("Last", "v", "forgotten with its key");
  store_.DeleteKey(kHive, "Last");
  store_.CreateKey(kHive, "Last");
  Set("A\\B", "PrevCheck", "kept");
  Set("A", "B\\PrevCheck", "another");
  store_.DeleteValue(kHive, "", "A\\B\\PrevCheck");
  EXPECT_EQ(Tree(""), (Lines{"|name|root", "A|B\\PrevCheck|another", "A\\B|PrevCheck|kept"}));
  store_.DeleteValue(kHive, "a", "b\\prevcheck");
  EXPECT_EQ(Tree("A"), (Lines{"A\\B|PrevCheck|kept"}));
}

TEST_F(SqliteStoreTest, HasNoNamesWithNul) {
  Set("Key", "a", "1");
  EXPECT_FALSE(store_.Write(kHive, "Key", "a\0b"s, StringValue("2")));
  EXPECT_EQ(Get("Key", "a\0c"s), "");
  store_.DeleteValue(kHive, "Key", "a\0"s);
  store_.CreateKey(kHive, "Key\0x"s);
  EXPECT_FALSE(store_.KeyExists(kHive, "Key\0x"s));
  store_.DeleteKey(kHive, "Key\0"s);
  EXPECT_EQ(Tree(""), (Lines{"Key|a|1"}));
}

// What is a key below another one, and what only looks alike.
TEST_F(SqliteStoreTest, KnowsTheKeysBelowAKey) {
  const test::Table<std::string, Lines, Lines> cases = {
      {"Links",
       {"Links", "LINKS\\01", "links\\01\\x", "Links\\\xFF"},
       {"Link", "Links 2", "Links]", "LinksA", "Linksa", "X\\Links"}},
      {"A%_", {"A%_", "a%_\\x"}, {"A", "Ab", "Abc\\x", "Ab_\\x", "A%"}}};
  for (const auto& [root, below, beside] : cases) {
    for (const Lines& keys : {below, beside}) {
      for (const std::string& key : keys) {
        Set(key, "v", "1");
      }
    }
    const std::size_t all = Tree("").size();
    EXPECT_EQ(Tree(root + "\\").size(), below.size());
    store_.DeleteKey(kHive, root + "\\");
    EXPECT_EQ(Tree(root), Lines{});
    EXPECT_EQ(Tree("").size(), all - below.size());
    for (const std::string& key : beside) {
      EXPECT_EQ(Get(key, "v"), "1") << key;
    }
    EXPECT_FALSE(store_.KeyExists(kHive, root));
  }
}

TEST_F(SqliteStoreTest, UndoesAChangeThatThrowsAndShowsOthersAWholeOne) {
  Set("Key", "v", "old");
  const StoreStamp before = store_.Stamp();
  EXPECT_THROW(store_.AsOneChange([&] {
    Set("Key", "v", "new");
    Set("Key\\Below", "v", "new");
    EXPECT_EQ(Get("Key", "v"), "new");
    store_.AsOneChange([] { throw std::out_of_range("inner"); });
  }),
               std::out_of_range);
  EXPECT_EQ(Tree(""), (Lines{"Key|v|old"}));
  EXPECT_NE(store_.Stamp(), before);
  store_.DeleteKey(kHive, "Key");
  SqliteStore other(file_, StoreAccess::ReadOnly);
  store_.AsOneChange([&] {
    Set("Key", "a", "1");
    store_.AsOneChange([&] { Set("Key", "b", "2"); });
    EXPECT_TRUE(other.ReadTree(kHive, "").empty());
  });
  EXPECT_EQ(other.ReadTree(kHive, "").size(), 2U);
}

TEST_F(SqliteStoreTest, StampsWhatMayHaveChangedBelowAKey) {
  SqliteStore other(file_, StoreAccess::ReadWrite);
  store_.CreateKey(kHive, "A\\Records\\01");
  store_.CreateKey(kHive, "A\\RecordsToo");
  const auto moved = [&](auto work) {
    const StoreStamp before = store_.StampBelow(kHive, "A\\Records\\");
    work();
    return store_.StampBelow(kHive, "A\\Records\\") != before;
  };
  EXPECT_FALSE(moved([&] { Set("A", "v", "1"); }));
  EXPECT_FALSE(moved([&] { Set("A\\RecordsToo", "v", "1"); }));
  EXPECT_TRUE(moved([&] { Set("a\\records\\01", "v", "1"); }));
  EXPECT_TRUE(moved([&] { store_.DeleteValue(kHive, "A\\Records\\01\\", "v"); }));
  EXPECT_TRUE(moved([&] { store_.CreateKey(kHive, "A\\Records\\02"); }));
  EXPECT_TRUE(moved([&] { SetSettingValue(other, kHive, "A", "v", "2"); }));
  EXPECT_TRUE(moved([&] { store_.DeleteKey(kHive, "A"); }));
  EXPECT_TRUE(moved([&] {
    EXPECT_THROW(store_.AsOneChange([] { throw std::out_of_range("undone"); }), std::out_of_range);
  }));
}

TEST_F(SqliteStoreTest, StampsEveryChangeAndNothingElse) {
  SqliteStore other(file_, StoreAccess::ReadWrite);
  const auto moved = [&](auto work) {
    const StoreStamp before = store_.Stamp();
    work();
    return store_.Stamp() != before;
  };
  EXPECT_TRUE(moved([&] { Set("Key", "v", "1"); }));
  EXPECT_TRUE(moved([&] { other.DeleteKey(kHive, "Key"); }));
  EXPECT_FALSE(moved([&] {
    static_cast<void>(Tree(""));
    static_cast<void>(other.ReadTree(kHive, ""));
    store_.DeleteKey(kHive, "Missing");
    store_.AsOneChange([&] { static_cast<void>(Get("Key", "v")); });
    other.AsOneChange([] {});
    const SqliteStore third(file_, StoreAccess::ReadWrite);
  }));
}

}  // namespace
}  // namespace tallyo
