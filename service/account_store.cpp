#include "service/account_store.h"

namespace tallyo::service {

namespace {

AccountRecord RecordOf(const Statement& row) {
  AccountRecord record;
  record.name = row.Text(0);
  record.company = row.Text(1);
  record.maxLinks = static_cast<int>(row.Number(2));
  record.opened = row.Text(3);
  record.goodThrough = row.Text(4);
  record.banned = row.Number(5) != 0;
  return record;
}

AccountRecord Changed(AccountRecord record, const AccountChange& change) {
  record.company = change.company.value_or(record.company);
  record.maxLinks = change.maxLinks.value_or(record.maxLinks);
  record.opened = change.opened.value_or(record.opened);
  record.goodThrough = change.goodThrough.value_or(record.goodThrough);
  record.banned = change.banned.value_or(record.banned);
  return record;
}

}  // namespace

bool AccountStore::Add(const AccountRecord& record) {
  Statement insert(database_,
                   "INSERT INTO accounts (name, company, max_links, opened, good_through, banned) "
                   "VALUES (?, ?, ?, ?, ?, ?) ON CONFLICT (name) DO NOTHING");
  insert.Bind(1, record.name).Bind(2, record.company).Bind(3, record.maxLinks);
  insert.Bind(4, record.opened).Bind(5, record.goodThrough).Bind(6, record.banned ? 1 : 0);
  insert.Run();
  return database_.ChangedRows() != 0;
}

bool AccountStore::Change(std::string_view name, const AccountChange& change) {
  Transaction transaction(database_, Transaction::Kind::Write);
  const std::optional<AccountRecord> old = Find(name);
  if (!old) return false;
  const AccountRecord record = Changed(*old, change);
  Statement update(database_,
                   "UPDATE accounts SET company = ?, max_links = ?, opened = ?, good_through = ?, "
                   "banned = ? WHERE name = ?");
  update.Bind(1, record.company).Bind(2, record.maxLinks).Bind(3, record.opened);
  update.Bind(4, record.goodThrough).Bind(5, record.banned ? 1 : 0).Bind(6, name);
  update.Run();
  transaction.Commit();
  return true;
}

std::optional<AccountRecord> AccountStore::Find(std::string_view name) {
  Statement select(database_,
                   "SELECT name, company, max_links, opened, good_through, banned "
                   "FROM accounts WHERE name = ?");
  select.Bind(1, name);
  if (!select.Step()) return std::nullopt;
  return RecordOf(select);
}

std::vector<ListedAccount> AccountStore::List() {
  Statement select(database_,
                   "SELECT name, company, max_links, opened, good_through, banned, "
                   "(SELECT count(*) FROM links WHERE account_id = accounts.id) "
                   "FROM accounts ORDER BY name");
  std::vector<ListedAccount> accounts;
  while (select.Step()) accounts.push_back({RecordOf(select), select.Number(6)});
  return accounts;
}

}  // namespace tallyo::service
