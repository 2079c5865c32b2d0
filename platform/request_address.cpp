#include "platform/request_address.h"

#include <curl/curl.h>

#include <algorithm>
#include <array>
#include <memory>
#include <new>

#include "platform/http_transfer.h"
#include "platform/transport_failure.h"

namespace tallyo {
namespace {

struct FreeUrl {
  void operator()(CURLU* url) const { curl_url_cleanup(url); }
};
using UrlParts = std::unique_ptr<CURLU, FreeUrl>;

struct FreeText {
  void operator()(char* text) const { curl_free(text); }
};

[[noreturn]] void Refuse(const char* why) {
  throw TransportFailure(TransportFailure::Reason::BadAddress, why);
}

bool IsControl(char byte) {
  const auto code = static_cast<unsigned char>(byte);
  return code < 0x20 || code == 0x7F;
}

bool BeginsWithScheme(std::string_view address, std::string_view scheme) {
  constexpr auto kLower = [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  };
  return address.size() >= scheme.size() &&
         std::equal(scheme.begin(), scheme.end(), address.begin(),
                    [kLower](char a, char b) { return a == kLower(b); });
}

// Where host and port begin.
std::size_t AfterScheme(std::string_view address) {
  constexpr std::array<std::string_view, 2> kSchemes = {"http://", "https://"};
  const auto* const scheme = std::find_if(kSchemes.begin(), kSchemes.end(), [&](auto known) {
    return BeginsWithScheme(address, known);
  });
  if (scheme == kSchemes.end()) {
    Refuse("the address does not begin with http:// or https://");
  }
  return scheme->size();
}

UrlParts NoParts() {
  UrlParts parts(curl_url());
  if (!parts) throw std::bad_alloc();
  return parts;
}

// A part of the address; nothing where the address does not have it.
std::optional<std::string> Part(const UrlParts& parts, CURLUPart which) {
  char* text = nullptr;
  if (curl_url_get(parts.get(), which, &text, 0) != CURLUE_OK) return std::nullopt;
  const std::unique_ptr<char, FreeText> owner(text);
  return std::string(text);
}

UrlParts ServerParts(const std::string& server) {
  UrlParts parts = NoParts();
  switch (curl_url_set(parts.get(), CURLUPART_URL, server.c_str(), 0)) {
    case CURLUE_OK:
      return parts;
    case CURLUE_NO_HOST:
      Refuse("the address has no host");
    case CURLUE_BAD_PORT_NUMBER:
      Refuse("the port in the address is not a number up to 65535");
    default:
      Refuse("the host in the address cannot be read");
  }
}

// Asks libcurl itself what it would make of the address. Bytes from 0x80 always go out raw: what
// becomes of them is not the same in every version.
bool SentAsItStands(const std::string& address, const std::string& target) {
  const bool plain = std::all_of(target.begin(), target.end(),
                                 [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  const UrlParts parts = NoParts();
  if (!plain || curl_url_set(parts.get(), CURLUPART_URL, address.c_str(), 0) != CURLUE_OK) {
    return false;
  }
  std::string sent = Part(parts, CURLUPART_PATH).value_or("");
  if (const auto query = Part(parts, CURLUPART_QUERY)) sent += "?" + *query;
  return sent == target;
}

}  // namespace

void CheckAddress(std::string_view address) { const RequestAddress checked(address); }

RequestAddress::RequestAddress(std::string_view address) : address_(address), url_(address) {
  if (std::any_of(address.begin(), address.end(), IsControl)) {
    Refuse("the address holds a control character");
  }
  const std::size_t authority = AfterScheme(address);
  const std::size_t end = std::min(address.find_first_of("/?#", authority), address.size());
  if (end == authority) Refuse("the address has no host");

  const std::string server = address_.substr(0, end) + "/";
  const UrlParts parts = ServerParts(server);
  host_ = Part(parts, CURLUPART_HOST).value_or("");
  if (const auto port = Part(parts, CURLUPART_PORT)) host_ += ":" + *port;
  secure_ = Part(parts, CURLUPART_SCHEME) == "https";

  std::string target = address_.substr(end);
  if (target.empty() || target.front() != '/') target.insert(0, 1, '/');
  if (!SentAsItStands(address_, target)) {
    url_ = server;
    rawTarget_ = std::move(target);
  }
}

RequestAddress RequestAddress::Redirected(const std::string& location) const {
  const UrlParts parts = NoParts();
  const bool read =
      curl_url_set(parts.get(), CURLUPART_URL, address_.c_str(), CURLU_ALLOW_SPACE) == CURLUE_OK &&
      curl_url_set(parts.get(), CURLUPART_URL, location.c_str(),
                   CURLU_ALLOW_SPACE | CURLU_URLENCODE) == CURLUE_OK &&
      curl_url_set(parts.get(), CURLUPART_FRAGMENT, nullptr, 0) == CURLUE_OK;
  const auto fail = [&](const std::string& why) {
    return TransportFailure(TransportFailure::Reason::Failed, host_ + " redirected to " + why);
  };
  try {
    RequestAddress next(read ? Part(parts, CURLUPART_URL).value_or("") : "");
    if (secure_ && !next.secure_) throw fail("an address that is not secure");
    return next;
  } catch (const TransportFailure& failure) {
    if (failure.Why() != TransportFailure::Reason::BadAddress) throw;
    throw fail("an address that cannot be fetched");
  }
}

}  // namespace tallyo
