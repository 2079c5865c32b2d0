#include "ui/preferences.h"

#include <gtest/gtest.h>

#include "tests/support/test_program.h"

namespace tallyo {
namespace {

class PreferencesTest : public testing::Test {
 protected:
  [[nodiscard]] std::optional<TypedValue> Autoload() {
    return program.Store().Read(Hive::LocalMachine, names::RunKey, names::AppTitle);
  }
  CheckBox& Box(std::size_t index) { return program.Form().Check1[index]; }
  // Types into a field of the screen and leaves it.
  void Enter(TextBox& box, const std::string& text) {
    TextBox& other = &box == &program.Form().Text2 ? program.Form().Text3 : program.Form().Text2;
    program.P().screens.ShowScreen(screen::kPreferences);
    program.Form().SetFocus(box);
    box.SetText(text);
    program.Form().SetFocus(other);
  }

  test::TestProgram program;
};

TEST_F(PreferencesTest, StoreEveryBoxAtOnce) {
  const struct {
    std::size_t box;
    int value;
    std::string_view name;
    const char* text;
  } cases[] = {{2, 1, names::kUpdChck, "1"},           {2, 2, names::kUpdChck, "2"},
               {2, 0, names::kUpdChck, "0"},           {3, 1, names::kStartPos, "1"},
               {3, 0, names::kStartPos, "0"},          {4, 1, names::kShowSlotsLeft, "True"},
               {4, 2, names::kShowSlotsLeft, "False"}, {4, 1, names::kShowSlotsLeft, "True"},
               {4, 0, names::kShowSlotsLeft, "False"}, {5, 1, names::kDaysLeft, "True"},
               {5, 0, names::kDaysLeft, "False"}};
  program.Start();
  for (const auto& c : cases) {
    Box(c.box).SetValue(c.value);
    EXPECT_EQ(program.Setting(c.name), c.text) << c.box << " " << c.value;
  }
  EXPECT_EQ(program.Form().Frame.State(), WindowState::Normal);  // minimized at the next start
}

TEST_F(PreferencesTest, AutoloadStoresTheCommandAndEmptiesItAgain) {
  program.Start();
  EXPECT_EQ(Autoload(), std::nullopt);
  Box(0).SetValue(1);
  EXPECT_EQ(Autoload(), StringValue(program.folder.Path().string() + "/tallyo.exe"));
  Box(0).SetValue(0);
  EXPECT_EQ(Autoload(), StringValue(""));
}

TEST_F(PreferencesTest, ShowFiguresOnAllScreens) {
  program.Start();
  MainForm& form = program.Form();
  Box(4).SetValue(1);
  EXPECT_TRUE(form.Label5[1].Visible() && form.Label4[0].Visible());
  EXPECT_FALSE(form.Label5[0].Visible() || form.Label4[1].Visible());
  Box(4).SetValue(2);
  EXPECT_FALSE(form.Label5[1].Visible() || form.Label4[0].Visible());
  Box(5).SetValue(1);
  EXPECT_TRUE(form.Label5[0].Visible() && form.Label4[1].Visible());
  EXPECT_FALSE(form.Label5[1].Visible() || form.Label4[0].Visible());
  Box(5).SetValue(0);
  EXPECT_FALSE(form.Label5[0].Visible() || form.Label4[1].Visible());
}

TEST_F(PreferencesTest, AreRestoredAtTheNextStart) {
  const struct {
    std::string_view name;
    const char* stored;
    std::size_t box;
    int value;
    const char* storedThen;  // the click of a box that was ticked stores it again
  } cases[] = {
      {names::kShowSlotsLeft, "True", 4, 1, "True"},
      {names::kShowSlotsLeft, "true", 4, 0, "true"},
      {names::kShowSlotsLeft, "1", 4, 0, "1"},
      {names::kDaysLeft, "True", 5, 0, "True"},
      {names::kDaysLeft, "true", 5, 1, "True"},
      {names::kUpdChck, "1", 2, 1, "1"},
      {names::kUpdChck, " 1x", 2, 1, "1"},
      {names::kUpdChck, "2", 2, 0, "2"},
      {names::kUpdChck, "1.5", 2, 0, "1.5"},
      {names::kStartPos, "", 3, 0, ""},
      {names::kStartPos, "0", 3, 0, "0"},
      {names::kStartPos, "1", 3, 1, "1"},
      {names::kStartPos, "2", 3, 2, "2"},
      {names::kStartPos, "3", 3, 0, "3"},
      {names::kStartPos, "-1", 3, 0, "-1"},
      {names::kStartPos, "1.5", 3, 2, "2"},
      {names::kStartPos, "2.5", 3, 2, "2"},
      {names::kStartPos, "0.5", 3, 0, "0.5"},
      {names::kStartPos, "1abc", 3, 1, "1"},
      {names::kStartPos, "99999", 3, 0, "99999"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.name << " " << c.stored);
    program.Set(c.name, c.stored);
    program.Start();
    EXPECT_EQ(Box(c.box).Value(), c.value);
    EXPECT_EQ(program.Setting(c.name), c.storedThen);
    EXPECT_EQ(program.Form().Frame.State(),
              c.box == 3 && c.value == 1 ? WindowState::Minimized : WindowState::Normal);
    program.Set(c.name, "");
  }
}

TEST_F(PreferencesTest, AreKeptByARestartButForTheDueDate) {
  program.Start();
  for (const std::size_t box : {0U, 2U, 4U, 5U}) {
    Box(box).SetValue(1);
  }
  Enter(program.Form().Text3, " http://x/?a=1&b ");
  program.Restart();
  EXPECT_EQ(Box(0).Value() + Box(2).Value() + Box(4).Value(), 3);
  EXPECT_TRUE(program.Form().Label5[1].Visible() && program.Form().Label4[0].Visible());
  EXPECT_EQ(Box(5).Value(), 0);
  EXPECT_FALSE(program.Form().Label4[1].Visible());
  EXPECT_EQ(program.Setting(names::kDaysLeft), "True");
  EXPECT_EQ(program.Form().Text3.Text(), " http://x/?a=1&b ");
  Box(0).SetValue(0);
  program.Restart();
  EXPECT_EQ(Box(0).Value(), 0);
}

TEST_F(PreferencesTest, TheIntervalIsAtLeastHalfAnHour) {
  const struct {
    const char* typed;
    const char* shown;
    const char* stored;
  } cases[] = {
      {"", "0.5", "0.5"},          {"abc", "0.5", "0.5"},
      {"0.25", "0.5", "0.5"},      {"-3", "0.5", "0.5"},
      {"0.5", "0.5", "0.5"},       {"100", "100", "100"},
      {"2 hours", "2 hours", "2"}, {"1.23456789", "1.23456789", "1.234568"},
      {"1e3", "1e3", "1"},
  };
  program.Start();
  for (const auto& c : cases) {
    Enter(program.Form().Text2, c.typed);
    EXPECT_EQ(program.Form().Text2.Text(), c.shown) << c.typed;
    EXPECT_EQ(program.Setting(names::kUpdDefTime), c.stored) << c.typed;
  }
}

TEST_F(PreferencesTest, AStoredIntervalIsShownButNotRewritten) {
  const struct {
    const char* stored;
    const char* shown;
  } cases[] = {{"", "0.5"},    {"abc", "0.5"},         {"0.49", "0.5"},
               {"0.5", "0.5"}, {"2 hours", "2 hours"}, {"12", "12"}};
  for (const auto& c : cases) {
    program.Set(names::kUpdDefTime, c.stored);
    program.Start();
    EXPECT_EQ(program.Form().Text2.Text(), c.shown);
    EXPECT_EQ(program.Setting(names::kUpdDefTime), c.stored);
  }
}

}  // namespace
}  // namespace tallyo
