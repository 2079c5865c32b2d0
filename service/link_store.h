#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "service/database.h"

namespace tallyo::service {

struct StoredLink {
  std::int64_t id = 0;
  std::string account;
  std::string reference;
  std::string url;
};

struct StoredCount {
  std::string reference;
  std::int64_t hits = 0;
};

enum class AddOutcome { Added, ReferenceExists, UrlExists, UnknownAccount, Banned, NoSlotLeft };

struct AddedLink {
  AddOutcome outcome = AddOutcome::Added;
  std::int64_t id = 0;  // of the new link
};

// Why a reference or an URL cannot be registered; empty where it can. An accepted URL is safe in a
// header line.
[[nodiscard]] std::string WhyReferenceIsRefused(std::string_view reference);
[[nodiscard]] std::string WhyUrlIsRefused(std::string_view url);

// The links in the database and their stored counts. Throws DatabaseError.
class LinkStore {
 public:
  explicit LinkStore(Database& database) : database_(database) {}

  // Takes values that were found acceptable. An existing reference is named before an existing
  // URL, and both before a lack of slots.
  [[nodiscard]] AddedLink Add(std::string_view account, std::string_view reference,
                              std::string_view url);
  // False where the account has no link of this reference. Its count goes with it.
  [[nodiscard]] bool Remove(std::string_view account, std::string_view reference);

  [[nodiscard]] std::vector<StoredLink> LoadAll();
  // In the order in which the links were added.
  [[nodiscard]] std::vector<StoredCount> Counts(std::string_view account);

 private:
  Database& database_;
};

}  // namespace tallyo::service
