#include "service/request_target.h"

#include <array>
#include <optional>
#include <utility>

#include "service/plain_text.h"

namespace tallyo::service {

namespace {

constexpr std::string_view kAccounts = "/Tallyo/accounts/";
constexpr std::string_view kDevStats = "/cgi-bin/Tallyo/devstats.cgi";
constexpr std::string_view kCounting = "/cgi-bin/Tallyo/tallyo.cgi";
constexpr std::array<std::pair<std::string_view, Page>, 4> kPages{{
    {"/", Page::Front},
    {"/Tallyo/signupinfo.html", Page::SignUp},
    {"/Tallyo/support.html", Page::Support},
    {"/Tallyo/upgradeinfo.html", Page::Upgrade},
}};

bool TakeBeginning(std::string_view& text, std::string_view beginning) {
  if (!text.starts_with(beginning)) return false;
  text.remove_prefix(beginning.size());
  return true;
}

std::optional<std::string_view> WithoutEnding(std::string_view text, std::string_view ending) {
  if (!text.ends_with(ending)) return std::nullopt;
  text.remove_suffix(ending.size());
  return text;
}

// Takes the text up to the mark, and the mark, off the front; nothing where the mark is missing.
std::optional<std::string_view> TakeUpTo(std::string_view& text, std::string_view mark) {
  const auto place = text.find(mark);
  if (place == std::string_view::npos) return std::nullopt;
  const std::string_view front = text.substr(0, place);
  text.remove_prefix(place + mark.size());
  return front;
}

Request ParseCounting(std::string_view query) {
  if (!TakeBeginning(query, "?acc=")) return UnknownPath{};
  const std::optional<std::string_view> account = TakeUpTo(query, "&flnk=");
  if (!account) return UnknownPath{};
  return FollowLink{*account, query};
}

struct NamedLink {
  std::string_view reference;
  std::string_view url;
};

// Both are empty where a mark is missing. A reference may hold anything but "&link=".
NamedLink ParseLink(std::string_view values) {
  std::optional<std::string_view> front = TakeUpTo(values, "&link=");
  if (!front || !TakeUpTo(*front, "&fryname=")) return {};
  return {*front, values};
}

// An account that does not end as its list or record does is no account: its name is empty.
Request ParseDevStats(std::string_view query) {
  if (!TakeBeginning(query, "?account=")) return UnknownAction{};
  const std::optional<std::string_view> file = TakeUpTo(query, "&action=");
  if (!file) return UnknownAction{};
  const std::string_view action = query.substr(0, query.find('&'));
  if (action == "show") return ShowCounts{WithoutEnding(*file, ".txt").value_or("")};
  const std::string_view account = WithoutEnding(*file, "f.txt").value_or("");
  const NamedLink link = ParseLink(query.substr(action.size()));
  if (action == "add") return AddLink{account, link.reference, link.url};
  if (action == "del") return RemoveLink{account, link.reference};
  return UnknownAction{};
}

// Of "http://host/path" the path.
std::string_view WithoutHost(std::string_view target) {
  constexpr std::string_view kScheme = "http://";
  if (!BeginsIgnoringCase(target, kScheme)) return target;
  const auto path = target.find('/', kScheme.size());
  return path == std::string_view::npos ? "/" : target.substr(path);
}

}  // namespace

Request ParseTarget(std::string_view target) {
  target = WithoutHost(target);
  if (TakeBeginning(target, kCounting)) return ParseCounting(target);
  if (TakeBeginning(target, kDevStats)) return ParseDevStats(target);
  if (TakeBeginning(target, kAccounts)) {
    const std::optional<std::string_view> account = WithoutEnding(target, ".txt");
    if (!account) return UnknownPath{};
    return ReadAccount{*account};
  }
  for (const auto& [path, page] : kPages) {
    if (target == path) return ReadPage{page};
  }
  return UnknownPath{};
}

bool ChangesLinks(const Request& request) {
  return std::holds_alternative<AddLink>(request) || std::holds_alternative<RemoveLink>(request);
}

bool IsManagement(const Request& request) {
  return ChangesLinks(request) || std::holds_alternative<ReadAccount>(request) ||
         std::holds_alternative<ShowCounts>(request) ||
         std::holds_alternative<UnknownAction>(request);
}

}  // namespace tallyo::service
