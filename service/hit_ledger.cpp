#include "service/hit_ledger.h"

#include <vector>

#include "service/link_store.h"

namespace tallyo::service {

namespace {

// Moves with every commit of another connection.
std::int64_t DataVersion(Database& database) { return database.Number("PRAGMA data_version"); }

}  // namespace

HitLedger::HitLedger(Database& database, LinkIndex& index) : database_(database), index_(index) {
  const Transaction oneView(database_, Transaction::Kind::Read);
  index_.Replace(LinkStore(database_).LoadAll());
  dataVersion_ = DataVersion(database_);
}

void HitLedger::Refresh() {
  const std::int64_t seen = DataVersion(database_);
  if (seen == dataVersion_) return;
  // A commit between the question and the reading only makes the next call read once more.
  index_.Replace(LinkStore(database_).LoadAll());
  dataVersion_ = seen;
}

void HitLedger::Flush() {
  if (index_.AllPendingHits().empty()) return;
  Transaction transaction(database_, Transaction::Kind::Write);
  Refresh();  // from here on nobody else can change the links
  const std::vector<PendingHits> pending = index_.AllPendingHits();
  Statement add(database_, "UPDATE links SET hits = hits + ? WHERE id = ?");
  for (const PendingHits& entry : pending) {
    add.Bind(1, entry.hits).Bind(2, entry.link->id).Run();
  }
  transaction.Commit();
  for (const PendingHits& entry : pending) entry.link->hits -= entry.hits;
}

}  // namespace tallyo::service
