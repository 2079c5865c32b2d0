#pragma once

#include <string_view>
#include <variant>

namespace tallyo::service {

// What can be asked for. The texts are parts of the target that was read, raw: nothing in them has
// been decoded, and nothing is known of them but where they stood.

// A visitor of a counting link.
struct FollowLink {
  std::string_view account;
  std::string_view reference;
};

struct ReadAccount {
  std::string_view account;
};

struct ShowCounts {
  std::string_view account;
};

struct AddLink {
  std::string_view account;
  std::string_view reference;
  std::string_view url;
};

// The reference alone says which link is meant.
struct RemoveLink {
  std::string_view account;
  std::string_view reference;
};

// devstats.cgi with an action that it does not know.
struct UnknownAction {};

enum class Page { Front, SignUp, Support, Upgrade };

struct ReadPage {
  Page page = Page::Front;
};

struct UnknownPath {};

using Request = std::variant<FollowLink, ReadAccount, ShowCounts, AddLink, RemoveLink,
                             UnknownAction, ReadPage, UnknownPath>;

// Reads the target of a request line: a path with its query, or the same behind "http://host".
[[nodiscard]] Request ParseTarget(std::string_view target);

// Whether a request is for the account's owner rather than for everybody.
[[nodiscard]] bool IsManagement(const Request& request);

// Whether a request changes an account's links.
[[nodiscard]] bool ChangesLinks(const Request& request);

}  // namespace tallyo::service
