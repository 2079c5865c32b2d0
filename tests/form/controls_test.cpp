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

TEST(Control, TellsItsViewOfChangesAndItsHandlerAsItsKindAsks) {
  Label label;
  CheckBox box;
  int changes = 0;
  std::vector<std::string> captions;
  std::vector<int> values;
  label.Observe([&] { ++changes; });
  label.OnChange = [&] { captions.push_back(label.Caption()); };
  box.OnClick = [&] { values.push_back(box.Value()); };
  for (const char* caption : {"REMOVE", "REMOVE", ""}) {
    label.SetCaption(caption);
    label.SetVisible(false);
  }
  for (const int value : {0, 1, 1, 2, 2, 0}) {
    box.SetValue(value);
  }
  EXPECT_EQ(changes, 3);
  EXPECT_THAT(captions, ElementsAre("REMOVE", "REMOVE", ""));
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

TEST(MainForm, MovesTheFocusFromFieldToFieldOfShownScreens) {
  MainForm form;
  std::vector<std::string> events;
  form.Picture1[screen::kManageLinks].SetVisible(true);
  for (TextBox* box : {form.Text1.data(), &form.Text1[1], &form.Text2}) {
    box->OnGotFocus = [&events, box] { events.push_back(box->Caption() + " got"); };
    box->OnLostFocus = [&events, box] { events.push_back(box->Caption() + " lost"); };
  }
  for (TextBox* asked : {form.Text1.data(), form.Text1.data(), &form.Text2, &form.Text1[1]}) {
    form.SetFocus(*asked);
  }
  EXPECT_THAT(events, ElementsAre("Company got", "Company lost", "Account got"));
  EXPECT_EQ(form.Focused(), &form.Text1[1]);
}

}  // namespace
}  // namespace tallyo
