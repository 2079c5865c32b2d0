#pragma once

#include <cstdint>

#include "service/database.h"
#include "service/link_index.h"

namespace tallyo::service {

// Carries hits from memory into the database, each exactly once, and links from the database into
// memory. Belongs to the thread that owns the database.
class HitLedger {
 public:
  // Loads all links. Throws DatabaseError.
  HitLedger(Database& database, LinkIndex& index);

  // Stores the hits in memory. They leave memory when they are stored and not before: what fails
  // with DatabaseError is stored by a later call.
  void Flush();

  // Loads the links again where another program has changed the database. Throws DatabaseError.
  void Refresh();

 private:
  Database& database_;
  LinkIndex& index_;
  std::int64_t dataVersion_ = 0;
};

}  // namespace tallyo::service
