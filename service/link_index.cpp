#include "service/link_index.h"

#include <mutex>
#include <utility>

#include "service/plain_text.h"

namespace tallyo::service {

namespace {

bool MayBeEscaped(std::string_view text) { return text.find('%') != std::string_view::npos; }

}  // namespace

std::shared_ptr<const Link> LinkIndex::Visit(std::string_view account, std::string_view reference,
                                             std::int64_t hits) {
  // Under the lock, so that no hit goes to a link that Replace has just emptied.
  const std::shared_lock lock(mutex_);
  std::shared_ptr<Link> link = Find(account, reference);
  if (link && hits != 0) link->hits += hits;
  return link;
}

std::shared_ptr<Link> LinkIndex::Find(std::string_view account, std::string_view reference) const {
  if (const auto links = accounts_.find(account); links != accounts_.end()) {
    if (auto link = FindIn(links->second, reference)) return link;
  }
  if (!MayBeEscaped(account)) return nullptr;
  const auto links = accounts_.find(PercentDecoded(account));
  return links == accounts_.end() ? nullptr : FindIn(links->second, reference);
}

std::shared_ptr<Link> LinkIndex::FindIn(const Links& links, std::string_view reference) {
  if (const auto link = links.find(reference); link != links.end()) return link->second;
  if (!MayBeEscaped(reference)) return nullptr;
  const auto link = links.find(PercentDecoded(reference));
  return link == links.end() ? nullptr : link->second;
}

std::shared_ptr<Link> LinkIndex::FindExactly(std::string_view account,
                                             std::string_view reference) const {
  const auto links = accounts_.find(account);
  if (links == accounts_.end()) return nullptr;
  const auto link = links->second.find(reference);
  return link == links->second.end() ? nullptr : link->second;
}

void LinkIndex::Add(const StoredLink& stored) {
  Remove(stored.account, stored.reference);
  auto link = std::make_shared<Link>(stored);
  const std::string_view reference = link->reference;
  const std::unique_lock lock(mutex_);
  accounts_[stored.account].emplace(reference, std::move(link));
}

void LinkIndex::Remove(std::string_view account, std::string_view reference) {
  // The key in the map is a part of the link, which therefore has to outlive its place there.
  const std::shared_ptr<Link> link = FindExactly(account, reference);
  if (!link) return;
  const std::unique_lock lock(mutex_);
  const auto links = accounts_.find(account);
  links->second.erase(link->reference);
  if (links->second.empty()) accounts_.erase(links);
}

void LinkIndex::Replace(const std::vector<StoredLink>& stored) {
  Accounts fresh;
  std::vector<std::pair<std::shared_ptr<Link>, std::shared_ptr<Link>>> moved;
  for (const StoredLink& row : stored) {
    std::shared_ptr<Link> link = FindExactly(row.account, row.reference);
    if (!link || link->url != row.url || link->id != row.id) {
      auto changed = std::make_shared<Link>(row);
      if (link) moved.emplace_back(link, changed);
      link = std::move(changed);
    }
    const std::string_view reference = link->reference;
    fresh[row.account].emplace(reference, std::move(link));
  }
  const std::unique_lock lock(mutex_);
  accounts_.swap(fresh);
  for (const auto& [from, to] : moved) to->hits = from->hits.exchange(0);
}

std::vector<PendingHits> LinkIndex::AllPendingHits() const {
  std::vector<PendingHits> pending;
  for (const auto& [account, links] : accounts_) {
    for (const auto& [reference, link] : links) {
      if (const std::int64_t hits = link->hits.load(); hits != 0) pending.push_back({link, hits});
    }
  }
  return pending;
}

std::int64_t LinkIndex::PendingHitsOf(std::string_view account, std::string_view reference) const {
  const std::shared_ptr<Link> link = FindExactly(account, reference);
  return link ? link->hits.load() : 0;
}

}  // namespace tallyo::service
