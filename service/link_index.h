#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <shared_mutex>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "service/link_store.h"
#include "service/response.h"

namespace tallyo::service {

// A link as visitors meet it. Whoever holds one may use it although it was removed meanwhile.
struct Link {
  explicit Link(const StoredLink& stored)
      : id(stored.id),
        reference(stored.reference),
        url(stored.url),
        redirect(Response::RedirectTo(stored.url)) {}

  const std::int64_t id;
  const std::string reference;
  const std::string url;
  const Response redirect;
  std::atomic<std::int64_t> hits = 0;  // those that are not stored yet
};

struct PendingHits {
  std::shared_ptr<Link> link;
  std::int64_t hits = 0;
};

// Every link of the database in memory, so that a visitor never waits for the disk. Visit may be
// called from any thread; all the rest belongs to the one thread that owns the database.
class LinkIndex {
 public:
  // Looks for the texts as they are and then, because browsers escape what stands raw in a page,
  // for the texts that they are the escaped form of. The link found gets the hits, 0 or more. Null
  // where there is no such link.
  [[nodiscard]] std::shared_ptr<const Link> Visit(std::string_view account,
                                                  std::string_view reference, std::int64_t hits);

  void Add(const StoredLink& link);
  void Remove(std::string_view account, std::string_view reference);
  // Takes the links of the database as they are now. A link that is still there keeps its hits.
  void Replace(const std::vector<StoredLink>& links);

  [[nodiscard]] std::vector<PendingHits> AllPendingHits() const;
  [[nodiscard]] std::int64_t PendingHitsOf(std::string_view account,
                                           std::string_view reference) const;

 private:
  struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>{}(text);
    }
  };
  // The keys are the texts of the links themselves.
  using Links = std::unordered_map<std::string_view, std::shared_ptr<Link>>;
  using Accounts = std::unordered_map<std::string, Links, TextHash, std::equal_to<>>;

  [[nodiscard]] std::shared_ptr<Link> Find(std::string_view account,
                                           std::string_view reference) const;
  [[nodiscard]] std::shared_ptr<Link> FindExactly(std::string_view account,
                                                  std::string_view reference) const;
  [[nodiscard]] static std::shared_ptr<Link> FindIn(const Links& links, std::string_view reference);

  Accounts accounts_;  // changed by the owning thread alone, under the mutex
  mutable std::shared_mutex mutex_;
};

}  // namespace tallyo::service
