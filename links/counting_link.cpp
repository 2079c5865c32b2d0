#include "links/counting_link.h"

#include "settings/names.h"
#include "settings/version.h"

namespace tallyo {

std::string CountingLinkText(const std::string& scriptAddress) {
  return std::string(names::AppTitle) + " -- " + " v." + ShortVersion() + "\r\n\r\n" +
         scriptAddress;
}

std::string CountingScript(const std::string& account, const std::string& reference) {
  return "tallyo.cgi?acc=" + account + "&flnk=" + reference;
}

}  // namespace tallyo
