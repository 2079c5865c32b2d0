#include "links/link_index.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "tests/support/test_program.h"
#include "text/runtime_error.h"

namespace tallyo {
namespace {

// What a lookup gives: the record's number, or why there is none, and the caller's fields.
struct Result {
  std::string outcome;
  LinkFields fields;
  bool operator==(const Result&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Result& result) {
  out << result.outcome;
  for (const std::string& field : result.fields) {
    out << " [" << field << "]";
  }
  return out;
}

std::string Numbered(std::size_t number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

// Fills the fields from one record; false where it has more than four.
bool Split(std::string value, LinkFields& fields) {
  std::size_t k = 0;
  for (std::size_t p = value.find(','); p != std::string::npos; p = value.find(',')) {
    if (p > 0) {
      if (k > 3) {
        return false;
      }
      fields[k] = value.substr(0, p);
    }
    value = value.substr(p + 1);
    ++k;
  }
  if (k > 3) {
    return false;
  }
  fields[k] = value;
  return true;
}

// The lookup as a walk from record 01 upward, each record read afresh.
Result Walk(const std::function<std::string(const std::string&)>& read, LinkFields fields,
            const std::string& key, FindBy by) {
  for (std::size_t n = 1;; ++n) {
    const std::string number = Numbered(n);
    const std::string value = read(number);
    if (value.empty()) {
      return {"none before " + number, fields};
    }
    if (!Split(value, fields)) {
      return {"error", fields};
    }
    if (by == FindBy::First || fields[by == FindBy::Reference ? 2 : 1] == key) {
      return {"found " + number, fields};
    }
  }
}

Result Looked(const std::function<LinkLookup(LinkFields&)>& lookUp, LinkFields fields) {
  try {
    const LinkLookup lookup = lookUp(fields);
    return {(lookup.found ? "found " : "none before ") + lookup.Number(), fields};
  } catch (const RuntimeError&) {
    return {"error", fields};
  }
}

// Small random lists with few different texts, so that all cases meet.
class RandomLists {
 public:
  std::size_t UpTo(std::size_t last) {
    return std::uniform_int_distribution<std::size_t>(0, last)(random_);
  }
  std::string Text() {
    static const char* const texts[] = {"", "", "a", "b", "A", "ab"};
    return texts[UpTo(5)];
  }
  std::string Record() {
    static const std::size_t fieldCounts[] = {1, 2, 3, 3, 4, 4, 4, 4, 4, 4, 4, 5, 6};
    std::string record = Text();
    for (std::size_t i = fieldCounts[UpTo(12)]; i > 1; --i) {
      record += "," + Text();
    }
    return record.empty() ? "a" : record;
  }
  std::vector<std::string> Records() {
    std::vector<std::string> records(UpTo(6));
    std::ranges::generate(records, [this] { return Record(); });
    return records;
  }
  FindBy By() {
    static const FindBy all[] = {FindBy::FriendlyName, FindBy::Reference, FindBy::First};
    return all[UpTo(10) / 5];
  }

 private:
  std::mt19937 random_{20260115};  // NOLINT: the same lists in every run
};

TEST(LinkIndex, GivesWhatAWalkThroughTheRecordsGives) {
  RandomLists random;
  std::map<std::string, int> outcomes;
  for (int list = 0; list < 5000; ++list) {
    const std::vector<std::string> records = random.Records();
    const LinkIndex index(records);
    LinkFields fields = {random.Text(), random.Text(), random.Text(), random.Text()};
    for (int lookup = 0; lookup < 4; ++lookup) {
      const std::string key = random.Text();
      const FindBy by = random.By();
      const Result walked = Walk(
          [&](const std::string& number) {
            const auto n = static_cast<std::size_t>(std::stoi(number));
            return n <= records.size() ? records[n - 1] : std::string();
          },
          fields, key, by);
      const Result found =
          Looked([&](LinkFields& held) { return index.Find(held, key, by); }, fields);
      ASSERT_EQ(found, walked) << testing::PrintToString(records) << " key " << key;
      if (index.AllWhole()) {
        const auto first = index.FirstWithReference(key);
        LinkFields held;
        const LinkLookup same = index.Find(held, key, FindBy::Reference);
        ASSERT_EQ(first.has_value(), same.found);
        if (first) {
          ASSERT_EQ(static_cast<int>(*first) + 1, same.record);
          ASSERT_EQ(index.Field(*first, linkfield::kFriendlyName), held[1]);
        }
        ++outcomes["whole"];
      }
      ++outcomes[walked.outcome.substr(0, 5)];
      fields = walked.fields;  // the caller's array goes on into its next lookup
    }
  }
  EXPECT_GT(outcomes["found"], 1000);
  EXPECT_GT(outcomes["none "], 1000);
  EXPECT_GT(outcomes["error"], 1000);
  EXPECT_GT(outcomes["whole"], 1000);
}

TEST(LinkIndex, GivesOnTheStoreWhatReadingTheStoreGives) {
  test::TestProgram program;
  RandomLists random;
  for (int change = 0; change < 300; ++change) {
    const std::string number = Numbered(1 + random.UpTo(5));
    if (random.UpTo(5) == 0) {
      program.Store().DeleteKey(Hive::LocalMachine, std::string(names::MonitorFilesKey) + number);
    } else {
      program.SetRecord(number, random.UpTo(8) == 0 ? "" : random.Record());
    }
    const std::string key = random.Text();
    const FindBy by = random.By();
    const Result walked =
        Walk([&](const std::string& asked) { return program.Record(asked); }, {}, key, by);
    const Result found = Looked(
        [&](LinkFields& held) { return program.P().links.FindMonitoredLink(held, key, by); }, {});
    ASSERT_EQ(found, walked) << "change " << change;
  }
}

TEST(LinkIndex, SeesWhatAnotherProgramWritesAtOnce) {
  test::TestProgram program;
  program.SetRecord("01", "1,A,ra,http://a");
  SqliteStore other(program.folder.Path() / "settings.db", StoreAccess::ReadWrite);
  const std::string key(names::MonitorFilesKey);
  LinkFields fields;
  const auto find = [&](std::string_view name) {
    const LinkLookup lookup =
        program.P().links.FindMonitoredLink(fields, name, FindBy::FriendlyName);
    return lookup.found ? lookup.Number() : "none";
  };
  EXPECT_EQ(find("B"), "none");
  SetSettingValue(other, Hive::LocalMachine, key + "02", "02", "2,B,rb,http://b");
  EXPECT_EQ(find("B"), "02");
  SetSettingValue(other, Hive::LocalMachine, key + "02", "02", "2,C,rc,http://c");
  EXPECT_EQ(find("B"), "none");
  EXPECT_EQ(find("C"), "02");
  other.DeleteKey(Hive::LocalMachine, key + "01");
  EXPECT_EQ(find("C"), "none");
}

}  // namespace
}  // namespace tallyo
