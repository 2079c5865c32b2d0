#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "form/main_form.h"
#include "text/runtime_error.h"

namespace tallyo {
namespace {

using testing::ElementsAre;

TEST(Control, DoesNothingWhileDisabled) {
  Button button;
  MenuItem item;
  Label label;
  Timer timer;
  int runs = 0;
  button.OnClick = item.OnClick = label.OnClick = timer.OnTimer = [&] { ++runs; };
  for (const bool enabled : {false, true}) {
    for (Control* control : std::initializer_list<Control*>{&button, &item, &label, &timer}) {
      control->SetEnabled(enabled);
    }
    button.Click();
    item.Click();
    label.Click();
    timer.Tick();
    EXPECT_EQ(runs, enabled ? 4 : 0);
  }
}

TEST(Control, TellsItsViewOfChangesOnly) {
  Label label;
  int changes = 0;
  label.Observe([&] { ++changes; });
  for (int round = 0; round < 2; ++round) {
    label.SetEnabled(false);
    label.SetVisible(false);
    label.SetCaption("text");
    label.SetBackColor(kRed);
  }
  EXPECT_EQ(changes, 4);
}

TEST(Control, RunsTheHandlerOfALabelAlwaysAndOfABoxWhereItsValueChanges) {
  Label label;
  std::vector<std::string> captions;
  label.OnChange = [&] { captions.push_back(label.Caption()); };
  for (const char* caption : {"REMOVE", "REMOVE", ""}) {
    label.SetCaption(caption);
  }
  EXPECT_THAT(captions, ElementsAre("REMOVE", "REMOVE", ""));
  CheckBox box;
  std::vector<int> values;
  box.OnClick = [&] { values.push_back(box.Value()); };
  for (const int value : {0, 1, 1, 2, 2, 0}) {
    box.SetValue(value);
  }
  EXPECT_THAT(values, ElementsAre(1, 2, 0));
}

TEST(ComboBox, ChangesItsTextOnlyByAChoiceAndByClearing) {
  ComboBox combo;
  std::vector<std::string> clicks;  // the text at each click
  combo.OnClick = [&] { clicks.push_back(combo.Text()); };
  combo.SetText("b");
  for (const char* item : {"b", "a", "b"}) {
    combo.AddItem(item);
  }
  combo.RemoveItem(0);
  for (const int missing : {-1, 2}) {
    EXPECT_THROW(combo.Choose(missing), RuntimeError);
    EXPECT_THROW(combo.RemoveItem(missing), RuntimeError);
  }
  EXPECT_EQ(combo.Text(), "b");
  EXPECT_THAT(combo.Items(), ElementsAre("a", "b"));
  combo.Choose(0);
  combo.Choose(0);
  combo.Clear();
  EXPECT_THAT(clicks, ElementsAre("a", "a"));
  EXPECT_EQ(combo.Text(), "");
}

TEST(MainForm, StartsWithWhatIsHiddenAndWhatIsDisabled) {
  const MainForm form;
  for (const MenuItem* menu : form.MenuBar()) {
    for (const MenuItem* item : menu->Items()) {
      EXPECT_EQ(item->Enabled(), item->Name() != "mnuExportAll") << item->Name();
    }
  }
  EXPECT_FALSE(form.Command1[1].Enabled() || form.Check1[1].Enabled() || form.Timer1.Enabled());
  for (const Control* hidden : std::initializer_list<const Control*>{
           form.Label4.data(), &form.Label4[1], form.Label5.data(), &form.Label5[1],
           &form.Label5[2], &form.Label2[5], &form.Combo2, &form.Combo3}) {
    EXPECT_FALSE(hidden->Visible());
  }
}

TEST(MainForm, MovesTheFocusFromFieldToFieldOfShownScreens) {
  MainForm form;
  std::vector<std::string> events;
  form.Picture1[screen::kManageLinks].SetVisible(true);
  const auto note = [&](TextBox& box, const std::string& name) {
    box.OnGotFocus = [&events, name] { events.push_back(name + " got"); };
    box.OnLostFocus = [&events, name] { events.push_back(name + " lost"); };
  };
  note(form.Text1[0], "company");
  note(form.Text1[1], "account");
  note(form.Text2, "interval");
  for (TextBox* asked : {form.Text1.data(), form.Text1.data(), &form.Text2, &form.Text1[1]}) {
    form.SetFocus(*asked);
  }
  EXPECT_THAT(events, ElementsAre("company got", "company lost", "account got"));
  EXPECT_EQ(form.Focused(), &form.Text1[1]);
}

}  // namespace
}  // namespace tallyo
