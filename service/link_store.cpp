#include "service/link_store.h"

#include <cstddef>

#include "service/plain_text.h"

namespace tallyo::service {

namespace {

constexpr std::size_t kLongestReferenceBytes = 1024;
constexpr std::size_t kLongestUrlBytes = 8192;

bool HasLink(Database& database, const char* sql, std::int64_t accountId, std::string_view text) {
  Statement select(database, sql);
  return select.Bind(1, accountId).Bind(2, text).Step();
}

}  // namespace

std::string WhyReferenceIsRefused(std::string_view reference) {
  if (reference.empty()) return "the reference is empty";
  if (reference.size() > kLongestReferenceBytes) return "the reference is too long";
  if (HoldsControlBytes(reference)) return "the reference holds a control byte";
  return "";
}

std::string WhyUrlIsRefused(std::string_view url) {
  if (url.empty()) return "the link is empty";
  if (url.size() > kLongestUrlBytes) return "the link is too long";
  if (HoldsControlBytes(url)) return "the link holds a control byte";
  for (const std::string_view scheme : {"http://", "https://"}) {
    if (BeginsIgnoringCase(url, scheme) && url.size() > scheme.size()) return "";
  }
  return "the link is no http:// or https:// address";
}

AddedLink LinkStore::Add(std::string_view account, std::string_view reference,
                         std::string_view url) {
  Transaction transaction(database_, Transaction::Kind::Write);
  Statement terms(database_,
                  "SELECT id, banned, max_links, "
                  "(SELECT count(*) FROM links WHERE account_id = accounts.id) "
                  "FROM accounts WHERE name = ?");
  if (!terms.Bind(1, account).Step()) return {AddOutcome::UnknownAccount};
  const std::int64_t id = terms.Number(0);
  if (terms.Number(1) != 0) return {AddOutcome::Banned};
  if (HasLink(database_, "SELECT 1 FROM links WHERE account_id = ? AND reference = ?", id,
              reference)) {
    return {AddOutcome::ReferenceExists};
  }
  if (HasLink(database_, "SELECT 1 FROM links WHERE account_id = ? AND url = ?", id, url)) {
    return {AddOutcome::UrlExists};
  }
  if (terms.Number(3) >= terms.Number(2)) return {AddOutcome::NoSlotLeft};

  Statement insert(database_, "INSERT INTO links (account_id, reference, url) VALUES (?, ?, ?)");
  insert.Bind(1, id).Bind(2, reference).Bind(3, url).Run();
  const AddedLink added{AddOutcome::Added, database_.LastRowId()};
  transaction.Commit();
  return added;
}

bool LinkStore::Remove(std::string_view account, std::string_view reference) {
  Statement remove(database_,
                   "DELETE FROM links WHERE reference = ? "
                   "AND account_id = (SELECT id FROM accounts WHERE name = ?)");
  remove.Bind(1, reference).Bind(2, account).Run();
  return database_.ChangedRows() != 0;
}

std::vector<StoredLink> LinkStore::LoadAll() {
  Statement select(database_,
                   "SELECT links.id, name, reference, url "
                   "FROM links JOIN accounts ON accounts.id = account_id");
  std::vector<StoredLink> links;
  while (select.Step()) {
    links.push_back({select.Number(0), select.Text(1), select.Text(2), select.Text(3)});
  }
  return links;
}

std::vector<StoredCount> LinkStore::Counts(std::string_view account) {
  Statement select(database_,
                   "SELECT reference, hits FROM links "
                   "WHERE account_id = (SELECT id FROM accounts WHERE name = ?) ORDER BY id");
  select.Bind(1, account);
  std::vector<StoredCount> counts;
  while (select.Step()) counts.push_back({select.Text(0), select.Number(1)});
  return counts;
}

}  // namespace tallyo::service
