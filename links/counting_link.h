#pragma once

#include <string>

namespace tallyo {

// The text that shows a link's counting link: the program's title and version, an empty line, the
// address (the script's address with account and reference as they stand). Lines end with CR LF,
// the last has no end.
[[nodiscard]] std::string CountingLinkText(const std::string& scriptAddress);

// The script of the service, with its query, that counts a hit on a reference and passes the
// visitor on.
[[nodiscard]] std::string CountingScript(const std::string& account, const std::string& reference);

}  // namespace tallyo
