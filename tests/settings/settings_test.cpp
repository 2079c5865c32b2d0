#include "settings/settings.h"

#include <gtest/gtest.h>

#include "settings/sqlite_store.h"
#include "tests/support/temp_folder.h"

namespace tallyo {
namespace {

TEST(Settings, ASwitchIsOnOrOffOrAsBuilt) {
  const test::TempFolder folder;
  SqliteStore store(folder.Path() / "settings.db", StoreAccess::ReadWrite);
  Settings settings(store);
  EXPECT_TRUE(settings.IsOn("Switch", true));
  EXPECT_FALSE(settings.IsOn("Switch", false));
  const struct {
    const char* text;
    bool whereBuiltOn;
    bool whereBuiltOff;
  } cases[] = {{"1", true, true}, {"0", false, false}, {"", true, false}, {"True", true, false}};
  for (const auto& c : cases) {
    settings.Set("Switch", c.text);
    EXPECT_EQ(settings.IsOn("Switch", true), c.whereBuiltOn) << c.text;
    EXPECT_EQ(settings.IsOn("Switch", false), c.whereBuiltOff) << c.text;
  }
}

}  // namespace
}  // namespace tallyo
