#include "settings/value_text.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "settings/settings.h"
#include "settings/sqlite_store.h"
#include "tests/support/table.h"
#include "tests/support/temp_folder.h"

namespace tallyo {
namespace {

using std::string_literals::operator""s;

TEST(TextOf, ReadsStringsAndNumbers) {
  const test::Table<TypedValue, std::string> cases = {
      {{kStringType, "abc\0\0"s}, "abc\0"s},
      {{kStringType, "abc"}, "ab"},  // one byte goes, whatever it is
      {{kStringType, ""}, ""},
      {{kNumberType, "\x00\x01\0\0"s}, "256"},
      {{kNumberType, "\0\0\0\x80"s}, "-2147483648"},
      {{kNumberType, "\x01\0\0"s}, ""},
      {{kNumberType, "\x01\0\0\0\0"s}, ""},
      {{3, "abc\0"s}, ""},
      {StringValue("a\0\xFF"s), "a\0\xFF"s},
      {NumberValue(-7), "-7"},
      {NumberValue(std::numeric_limits<std::int32_t>::max()), "2147483647"}};
  for (const auto& [value, text] : cases) {
    EXPECT_EQ(TextOf(value), text);
  }
}

TEST(Settings, ASwitchIsOnOrOffOrAsBuilt) {
  const test::TempFolder folder;
  SqliteStore store(folder.Path() / "settings.db", StoreAccess::ReadWrite);
  Settings settings(store);
  const test::Table<const char*, bool, bool> cases = {
      {"", true, false}, {"1", true, true}, {"0", false, false}, {"True", true, false}};
  for (const auto& [text, whereBuiltOn, whereBuiltOff] : cases) {
    settings.Set("Switch", text);
    EXPECT_EQ(settings.IsOn("Switch", true), whereBuiltOn) << text;
    EXPECT_EQ(settings.IsOn("Switch", false), whereBuiltOff) << text;
  }
}

}  // namespace
}  // namespace tallyo
