#include "form/combo_box.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "text/runtime_error.h"

namespace tallyo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ComboBox, ChangesItsTextOnlyByAChoiceAndByClearing) {
  ComboBox combo;
  std::vector<std::string> clicks;  // the text at each click
  combo.OnClick = [&] { clicks.push_back(combo.Text()); };
  combo.SetText("b");
  for (const char* item : {"b", "a", "b", "c"}) {
    combo.AddItem(item);
  }
  combo.RemoveItem(0);
  EXPECT_EQ(combo.Text(), "b");
  EXPECT_THAT(combo.Items(), ElementsAre("a", "b", "c"));
  combo.Choose(0);
  combo.Choose(0);
  EXPECT_THAT(clicks, ElementsAre("a", "a"));
  combo.Clear();
  EXPECT_THAT(combo.Items(), IsEmpty());
  EXPECT_EQ(combo.Text(), "");
  EXPECT_EQ(clicks.size(), 2U);
}

TEST(ComboBox, RefusesItemsThatAreNotThere) {
  ComboBox combo;
  combo.AddItem("a");
  combo.SetText("typed");
  for (const int index : {-1, 1}) {
    EXPECT_THROW(combo.Choose(index), RuntimeError) << index;
    EXPECT_THROW(combo.RemoveItem(index), RuntimeError) << index;
  }
  EXPECT_EQ(combo.Text(), "typed");
  EXPECT_EQ(combo.Count(), 1);
}

}  // namespace
}  // namespace tallyo
