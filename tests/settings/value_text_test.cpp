#include "settings/value_text.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "settings/sqlite_store.h"
#include "tests/support/temp_folder.h"

namespace tallyo {
namespace {

using std::string_literals::operator""s;

constexpr Hive kHive = Hive::LocalMachine;

TEST(TextOf, ReadsStringsAndNumbers) {
  const struct {
    TypedValue value;
    std::string text;
  } cases[] = {
      {{kStringType, "abc\0"s}, "abc"},
      {{kStringType, "abc\0\0"s}, "abc\0"s},
      {{kStringType, "abc"}, "ab"},  // one byte goes, whatever it is
      {{kStringType, "\0"s}, ""},
      {{kStringType, ""}, ""},
      {{kNumberType, "\x01\0\0\0"s}, "1"},
      {{kNumberType, "\x00\x01\0\0"s}, "256"},
      {{kNumberType, "\xFF\xFF\xFF\xFF"s}, "-1"},
      {{kNumberType, "\0\0\0\x80"s}, "-2147483648"},
      {{kNumberType, "\x01\0\0"s}, ""},
      {{kNumberType, "\x01\0\0\0\0"s}, ""},
      {{3, "abc\0"s}, ""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(TextOf(c.value), c.text);
  }
}

TEST(TextOf, ReadsBackWhatWasMadeOfATextOrNumber) {
  for (const std::string& text : {""s, "text"s, "a\0b"s, "\xFF"s}) {
    EXPECT_EQ(TextOf(StringValue(text)), text);
  }
  for (const std::int32_t number : {0, 7, -7, std::numeric_limits<std::int32_t>::min(),
                                    std::numeric_limits<std::int32_t>::max()}) {
    EXPECT_EQ(TextOf(NumberValue(number)), std::to_string(number));
  }
}

TEST(SettingValue, IsWrittenIntoAKeyThatWasMissing) {
  const test::TempFolder folder;
  SqliteStore store(folder.Path() / "settings.db", StoreAccess::ReadWrite);
  EXPECT_EQ(QuerySettingValue(store, kHive, "A\\B", "name"), "");
  SetSettingValue(store, kHive, "A\\B\\", "name", "text");
  EXPECT_EQ(QuerySettingValue(store, kHive, "a\\b", "NAME"), "text");
  EXPECT_EQ(QuerySettingValue(store, kHive, "A", "name"), "");
}

}  // namespace
}  // namespace tallyo
