#pragma once

#include "service/answer.h"
#include "service/database.h"
#include "service/link_index.h"
#include "service/request_target.h"

namespace tallyo::service {

// Answers what account owners ask. Belongs to the thread that owns the database.
class ManagementDesk {
 public:
  ManagementDesk(Database& database, LinkIndex& index) : database_(database), index_(index) {}

  // Takes the requests that IsManagement names. Where the database fails, a change is refused and
  // a question is answered with status 503.
  [[nodiscard]] Answer Serve(const Request& request);

 private:
  [[nodiscard]] Answer Try(const Request& request);
  [[nodiscard]] Answer Read(const ReadAccount& request);
  [[nodiscard]] Answer Show(const ShowCounts& request);
  [[nodiscard]] Answer Add(const AddLink& request);
  [[nodiscard]] Answer Remove(const RemoveLink& request);

  Database& database_;
  LinkIndex& index_;
};

}  // namespace tallyo::service
