#include "ui/preferences.h"

#include <gtest/gtest.h>

#include "tests/support/table.h"
#include "tests/support/test_program.h"

namespace tallyo {
namespace {

using test::Table;

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

TEST_F(PreferencesTest, StoreEveryBoxAtOnceAndShowFiguresOnAllScreens) {
  const Table<std::size_t, int, std::string_view, const char*> cases = {
      {2, 1, names::kUpdChck, "1"},          {2, 2, names::kUpdChck, "2"},
      {3, 1, names::kStartPos, "1"},         {3, 0, names::kStartPos, "0"},
      {4, 1, names::kShowSlotsLeft, "True"}, {4, 2, names::kShowSlotsLeft, "False"},
      {5, 1, names::kDaysLeft, "True"},      {5, 0, names::kDaysLeft, "False"}};
  program.Start();
  const MainForm& form = program.Form();
  for (const auto& [box, value, name, text] : cases) {
    SCOPED_TRACE(testing::Message() << box << " " << value);
    Box(box).SetValue(value);
    EXPECT_EQ(program.Setting(name), text);
    for (const Label* label : {&form.Label5[1], form.Label4.data()}) {
      EXPECT_EQ(label->Visible(), box == 4 && value == 1);
    }
    for (const Label* label : {form.Label5.data(), &form.Label4[1]}) {
      EXPECT_EQ(label->Visible(), box == 5 && value == 1);
    }
  }
  EXPECT_EQ(program.Form().Frame.State(), WindowState::Normal);  // minimized at the next start
}

TEST_F(PreferencesTest, AreRestoredAtTheNextStart) {
  // The click of a box that was ticked stores it again.
  const Table<std::string_view, const char*, std::size_t, int, const char*> cases = {
      {names::kShowSlotsLeft, "True", 4, 1, "True"},
      {names::kShowSlotsLeft, "true", 4, 0, "true"},
      {names::kDaysLeft, "True", 5, 0, "True"},
      {names::kDaysLeft, "true", 5, 1, "True"},
      {names::kUpdChck, " 1x", 2, 1, "1"},
      {names::kUpdChck, "1.5", 2, 0, "1.5"},
      {names::kStartPos, "", 3, 0, ""},
      {names::kStartPos, "2", 3, 2, "2"},
      {names::kStartPos, "3", 3, 0, "3"},
      {names::kStartPos, "-1", 3, 0, "-1"},
      {names::kStartPos, "1.5", 3, 2, "2"},
      {names::kStartPos, "1abc", 3, 1, "1"},
      {names::kStartPos, "99999", 3, 0, "99999"}};
  for (const auto& [name, stored, box, value, storedThen] : cases) {
    SCOPED_TRACE(testing::Message() << name << " " << stored);
    program.Set(name, stored);
    program.Start();
    EXPECT_EQ(Box(box).Value(), value);
    EXPECT_EQ(program.Setting(name), storedThen);
    EXPECT_EQ(program.Form().Frame.State(),
              box == 3 && value == 1 ? WindowState::Minimized : WindowState::Normal);
    program.Set(name, "");
  }
}

TEST_F(PreferencesTest, KeepTheCommandOfAutoloadAndTheDefaultUrlOverARestart) {
  program.Start();
  EXPECT_EQ(Autoload(), std::nullopt);
  Box(0).SetValue(1);
  EXPECT_EQ(program.RunAtLogon(), std::vector{true});
  Enter(program.Form().Text3, " http://x/?a=1&b ");
  program.Restart();
  EXPECT_EQ(Box(0).Value(), 1);
  EXPECT_EQ(Autoload(), StringValue(program.folder.Path().string() + "/tallyo.exe"));
  EXPECT_EQ(program.Form().Text3.Text(), " http://x/?a=1&b ");
  Box(0).SetValue(0);
  EXPECT_EQ(Autoload(), StringValue(""));
  program.Restart();
  EXPECT_EQ(Box(0).Value(), 0);
}

TEST_F(PreferencesTest, TheIntervalIsAtLeastHalfAnHour) {
  const Table<const char*, const char*, const char*> typedCases = {
      {"abc", "0.5", "0.5"},
      {"0.49", "0.5", "0.5"},
      {"2 hours", "2 hours", "2"},
      {"1.23456789", "1.23456789", "1.234568"}};
  program.Start();
  for (const auto& [typed, shown, stored] : typedCases) {
    Enter(program.Form().Text2, typed);
    EXPECT_EQ(program.Form().Text2.Text(), shown) << typed;
    EXPECT_EQ(program.Setting(names::kUpdDefTime), stored) << typed;
  }
  for (const auto& [stored, shown] :
       Table<const char*, const char*>{{"", "0.5"}, {"0.49", "0.5"}, {"2 hours", "2 hours"}}) {
    program.Set(names::kUpdDefTime, stored);
    program.Start();
    EXPECT_EQ(program.Form().Text2.Text(), shown);
    EXPECT_EQ(program.Setting(names::kUpdDefTime), stored) << "shown but not rewritten";
  }
}

}  // namespace
}  // namespace tallyo
