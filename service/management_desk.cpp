#include "service/management_desk.h"

#include <exception>
#include <string>
#include <string_view>
#include <variant>

#include "service/account_store.h"
#include "service/link_store.h"
#include "service/pages.h"

namespace tallyo::service {

namespace {

// Clients look for these answers letter by letter.
Answer OneLine(std::string_view text) {
  Answer answer;
  answer.body = "<P>" + std::string(text) + "\n";
  return answer;
}

Answer Refused(std::string_view why) { return OneLine("refused: " + std::string(why)); }

Answer AnswerTo(AddOutcome outcome) {
  switch (outcome) {
    case AddOutcome::Added:
      return OneLine("ok");
    case AddOutcome::ReferenceExists:
      return OneLine("F Exists");
    case AddOutcome::UrlExists:
      return OneLine("L Exists");
    case AddOutcome::UnknownAccount:
      return Refused("unknown account");
    case AddOutcome::Banned:
      return Refused("the account is banned");
    case AddOutcome::NoSlotLeft:
      return Refused("no slot left");
  }
  return Refused("unknown outcome");
}

}  // namespace

Answer ManagementDesk::Serve(const Request& request) {
  try {
    return Try(request);
  } catch (const std::exception&) {
    return ChangesLinks(request) ? Refused("the database cannot be written now")
                                 : UnavailableAnswer();
  }
}

Answer ManagementDesk::Try(const Request& request) {
  if (const auto* read = std::get_if<ReadAccount>(&request)) return Read(*read);
  if (const auto* show = std::get_if<ShowCounts>(&request)) return Show(*show);
  if (const auto* add = std::get_if<AddLink>(&request)) return Add(*add);
  if (const auto* remove = std::get_if<RemoveLink>(&request)) return Remove(*remove);
  return Refused("unknown action");
}

Answer ManagementDesk::Read(const ReadAccount& request) {
  const std::optional<AccountRecord> record = AccountStore(database_).Find(request.account);
  if (!record) return NotFoundAnswer();
  Answer answer;
  answer.body = RecordLine(*record);
  return answer;
}

Answer ManagementDesk::Show(const ShowCounts& request) {
  if (!AccountStore(database_).Find(request.account)) return NotFoundAnswer();
  Answer answer;
  for (const StoredCount& stored : LinkStore(database_).Counts(request.account)) {
    const std::int64_t hits = stored.hits + index_.PendingHitsOf(request.account, stored.reference);
    answer.body += "<P>" + std::to_string(hits) + " " + stored.reference + "\n";
  }
  return answer;
}

Answer ManagementDesk::Add(const AddLink& request) {
  if (const std::string why = WhyReferenceIsRefused(request.reference); !why.empty()) {
    return Refused(why);
  }
  if (const std::string why = WhyUrlIsRefused(request.url); !why.empty()) return Refused(why);
  const AddedLink added = LinkStore(database_).Add(request.account, request.reference, request.url);
  if (added.outcome == AddOutcome::Added) {
    index_.Add({added.id, std::string(request.account), std::string(request.reference),
                std::string(request.url)});
  }
  return AnswerTo(added.outcome);
}

Answer ManagementDesk::Remove(const RemoveLink& request) {
  if (!LinkStore(database_).Remove(request.account, request.reference)) {
    return Refused("no such link");
  }
  index_.Remove(request.account, request.reference);
  return OneLine("ok");
}

}  // namespace tallyo::service
