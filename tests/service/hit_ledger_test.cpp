#include "service/hit_ledger.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "service/account_store.h"
#include "service/link_store.h"
#include "service/schema.h"
#include "tests/support/temp_folder.h"

namespace tallyo::service {
namespace {

class HitLedgerTest : public testing::Test {
 protected:
  HitLedgerTest() {
    EXPECT_TRUE(AccountStore(other_).Add({"acme", "Acme", 10, "01/01/2026", "01/01/2030"}));
    EXPECT_EQ(LinkStore(other_).Add("acme", "r", "http://x/1").outcome, AddOutcome::Added);
    EXPECT_EQ(LinkStore(other_).Add("acme", "s", "http://x/2").outcome, AddOutcome::Added);
    ledger_.Refresh();
  }

  void Hit(const char* reference, int times) {
    for (int i = 0; i < times; ++i) EXPECT_TRUE(index_.Visit("acme", reference, 1));
  }
  std::int64_t Stored(const char* reference) {
    for (const StoredCount& count : LinkStore(other_).Counts("acme")) {
      if (count.reference == reference) return count.hits;
    }
    return -1;
  }
  std::int64_t InMemory(const char* reference) { return index_.PendingHitsOf("acme", reference); }

  test::TempFolder folder_;
  Database database_ = OpenDatabase(folder_.Path() / "a.db", Database::WhenMissing::Create, 0);
  Database other_ = OpenDatabase(folder_.Path() / "a.db", Database::WhenMissing::Fail, 0);
  LinkIndex index_;
  HitLedger ledger_{database_, index_};
};

TEST_F(HitLedgerTest, StoresAllHitsOfOneFlushOnceOrKeepsThemAll) {
  other_.Execute(
      "CREATE TRIGGER full BEFORE UPDATE ON links WHEN new.reference = 's' "
      "BEGIN SELECT raise(ABORT, 'disk full'); END");
  Hit("r", 2);
  Hit("s", 1);
  EXPECT_THROW(ledger_.Flush(), DatabaseError);
  EXPECT_EQ(Stored("r"), 0);
  EXPECT_EQ(InMemory("r"), 2);
  other_.Execute("DROP TRIGGER full");
  Hit("r", 1);
  ledger_.Flush();
  ledger_.Flush();
  EXPECT_EQ(Stored("r"), 3);
  EXPECT_EQ(Stored("s"), 1);
  EXPECT_EQ(InMemory("r"), 0);
}

TEST_F(HitLedgerTest, FollowsWhatAnotherProgramChanges) {
  Hit("r", 5);
  Hit("s", 7);
  other_.Execute("UPDATE links SET url = 'http://x/new', hits = 5000000000 WHERE reference = 'r'");
  other_.Execute("DELETE FROM links WHERE reference = 's'");
  ledger_.Flush();
  EXPECT_EQ(Stored("r"), 5000000005);
  EXPECT_EQ(index_.Visit("acme", "r", 0)->url, "http://x/new");
  EXPECT_FALSE(index_.Visit("acme", "s", 1));
}

TEST_F(HitLedgerTest, ALinkAddedAnewDoesNotInheritHits) {
  Hit("r", 5);
  ASSERT_TRUE(LinkStore(database_).Remove("acme", "r"));
  index_.Remove("acme", "r");
  const AddedLink added = LinkStore(database_).Add("acme", "r", "http://x/1");
  index_.Add({added.id, "acme", "r", "http://x/1"});
  ledger_.Flush();
  EXPECT_EQ(Stored("r"), 0);
  EXPECT_EQ(added.id, 3) << "ids are not given twice";
}

TEST_F(HitLedgerTest, FindsALinkByItsRawTextBeforeItsDecodedOne) {
  for (const char* reference : {"a b", "a%20b", "100%", "\xC3\xA9"}) {
    const std::string url = "http://x/" + std::string(reference);
    index_.Add({9, "my site", reference, url});
  }
  const auto found = [&](const char* account, const char* reference) {
    const auto link = index_.Visit(account, reference, 0);
    return link ? link->reference : "";
  };
  EXPECT_EQ(found("my site", "a b"), "a b");
  EXPECT_EQ(found("my site", "a%20b"), "a%20b");
  EXPECT_EQ(found("my%20site", "a%2520b"), "a%20b");
  EXPECT_EQ(found("my%20site", "100%"), "100%");
  EXPECT_EQ(found("my%20site", "100%25"), "100%");
  EXPECT_EQ(found("my%20site", "%c3%A9"), "\xC3\xA9");
  EXPECT_EQ(found("my%20site", "a+b"), "");
  EXPECT_EQ(found("my%20site", "a b%00"), "");
}

}  // namespace
}  // namespace tallyo::service
