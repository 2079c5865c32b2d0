#include "form/control.h"

#include <gtest/gtest.h>

#include "form/button.h"
#include "form/check_box.h"
#include "form/label.h"
#include "form/menu_item.h"
#include "form/timer.h"

namespace tallyo {
namespace {

TEST(Control, DoesNothingWhileDisabled) {
  Button button;
  MenuItem item;
  Label label;
  Timer timer;
  int runs = 0;
  button.OnClick = item.OnClick = label.OnClick = timer.OnTimer = [&] { ++runs; };
  const auto act = [&] {
    button.Click();
    item.Click();
    label.Click();
    timer.Tick();
  };
  const auto enable = [&](bool enabled) {
    for (Control* control : std::initializer_list<Control*>{&button, &item, &label, &timer}) {
      control->SetEnabled(enabled);
    }
  };
  enable(false);
  act();
  EXPECT_EQ(runs, 0);
  enable(true);
  act();
  EXPECT_EQ(runs, 4);
}

TEST(Control, TellsItsViewOfChangesOnly) {
  Label label;
  int changes = 0;
  label.Observe([&] { ++changes; });
  label.SetEnabled(true);
  label.SetVisible(true);
  label.SetCaption("");
  label.SetColors(kWhite, kBlack);
  EXPECT_EQ(changes, 0);
  label.SetEnabled(false);
  label.SetVisible(false);
  label.SetCaption("text");
  label.SetBackColor(kRed);
  EXPECT_EQ(changes, 4);
}

TEST(Label, RunsItsChangeHandlerOnEveryAssignment) {
  Label label;
  std::vector<std::string> seen;
  label.OnChange = [&] { seen.push_back(label.Caption()); };
  label.SetCaption("REMOVE");
  label.SetCaption("REMOVE");
  label.SetCaption("");
  EXPECT_EQ(seen, (std::vector<std::string>{"REMOVE", "REMOVE", ""}));
}

TEST(CheckBox, RunsItsClickOnlyWhereTheValueReallyChanges) {
  CheckBox box;
  std::vector<int> seen;
  box.OnClick = [&] { seen.push_back(box.Value()); };
  for (const int value : {0, 1, 1, 2, 2, 0}) {
    box.SetValue(value);
  }
  EXPECT_EQ(seen, (std::vector<int>{1, 2, 0}));
}

}  // namespace
}  // namespace tallyo
