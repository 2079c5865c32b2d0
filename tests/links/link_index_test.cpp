#include "links/link_index.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/support/table.h"
#include "text/runtime_error.h"

namespace tallyo {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kA = "1,A,rA,pA";

// What a lookup comes to: the record's number, or why there is none, and the caller's fields.
std::string Found(const LinkIndex& index, std::string_view key, FindBy by) {
  LinkFields fields = {"s", "n", "r", "p"};
  std::string told;
  try {
    const LinkLookup lookup = index.Find(fields, key, by);
    told = (lookup.found ? "found " : "none before ") + lookup.Number();
  } catch (const RuntimeError&) {
    told = "error";
  }
  return told + ": " + fields[0] + "|" + fields[1] + "|" + fields[2] + "|" + fields[3];
}

TEST(LinkIndex, GivesWhatAWalkThroughTheRecordsGives) {
  const auto name = FindBy::FriendlyName;
  const test::Table<Texts, const char*, FindBy, const char*> cases = {
      {{}, "A", name, "none before 01: s|n|r|p"},
      {{}, "", FindBy::First, "none before 01: s|n|r|p"},
      {{kA, "2,B,rB,pB"}, "B", name, "found 02: 2|B|rB|pB"},
      {{kA, "2,B,rB,pB"}, "rB", FindBy::Reference, "found 02: 2|B|rB|pB"},
      {{kA, "2,B,rB,pB"}, "x", FindBy::First, "found 01: 1|A|rA|pA"},
      {{kA, "2,B,rB,pB"}, "b", name, "none before 03: 2|B|rB|pB"},
      {{kA, "2,A,rB,pB"}, "A", name, "found 01: 1|A|rA|pA"},
      {{kA, ",B,,pB", "3,C"}, "C", name, "found 03: 3|C|rA|pB"},
      {{kA, "2,,rB,pB"}, "A", name, "found 01: 1|A|rA|pA"},
      {{"1,,rA,"}, "n", name, "found 01: 1|n|rA|"},
      {{"1,,rA,pA", "2,n,rB,pB"}, "n", FindBy::Reference, "none before 03: 2|n|rB|pB"},
      {{"1,,rA,pA", "2,B,rB,pB"}, "B", name, "found 02: 2|B|rB|pB"},
      {{"a"}, "a", name, "none before 02: a|n|r|p"},
      {{kA, "2,B,rB,pB,more"}, "A", name, "found 01: 1|A|rA|pA"},
      {{kA, "2,B,,pB,more", "3,C,rC,pC"}, "B", name, "error: 2|B|rA|pB"}};
  for (const auto& [records, key, by, found] : cases) {
    EXPECT_EQ(Found(LinkIndex(records), key, by), found) << testing::PrintToString(records) << key;
  }
}

TEST(LinkIndex, GivesTheFirstOfAReferenceWhateverWasFoundBefore) {
  const LinkIndex index({kA, "2,B,rA,pB", "3,C,rC,pC"});
  EXPECT_TRUE(index.AllWhole());
  for (const auto& [reference, record] : test::Table<const char*, std::optional<std::size_t>>{
           {"rA", 0}, {"rA", 0}, {"rC", 2}, {"rC", 2}, {"x", std::nullopt}, {"rA", 0}}) {
    EXPECT_EQ(index.FirstWithReference(reference), record) << reference;
  }
  EXPECT_EQ(index.Field(2, linkfield::kFriendlyName), "C");
  EXPECT_FALSE(LinkIndex({kA, "2,,rB,pB"}).AllWhole());
  EXPECT_FALSE(LinkIndex({kA, "2,B,rB,pB,more"}).AllWhole());
}

}  // namespace
}  // namespace tallyo
