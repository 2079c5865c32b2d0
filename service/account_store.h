#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "service/account_record.h"
#include "service/database.h"

namespace tallyo::service {

struct ListedAccount {
  AccountRecord record;
  std::int64_t links = 0;
};

// What is to change of an account's terms; the rest stays.
struct AccountChange {
  std::optional<std::string> company;
  std::optional<int> maxLinks;
  std::optional<std::string> opened;
  std::optional<std::string> goodThrough;
  std::optional<bool> banned;

  [[nodiscard]] bool IsEmpty() const {
    return !company && !maxLinks && !opened && !goodThrough && !banned;
  }
};

// The accounts in the database, each operation one transaction. Throws DatabaseError.
class AccountStore {
 public:
  explicit AccountStore(Database& database) : database_(database) {}

  [[nodiscard]] bool Add(const AccountRecord& record);  // false: the name is taken
  [[nodiscard]] bool Change(std::string_view name, const AccountChange& change);  // false: unknown
  [[nodiscard]] std::optional<AccountRecord> Find(std::string_view name);
  [[nodiscard]] std::vector<ListedAccount> List();  // by name

 private:
  Database& database_;
};

}  // namespace tallyo::service
