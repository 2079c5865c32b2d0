#include "platform/curl_hop.h"

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

#include "platform/curl_on_demand.h"
#include "platform/transport_failure.h"

namespace tallyo {
namespace {

constexpr std::size_t kMostBodyBytes = 16UL * 1024 * 1024;
constexpr std::size_t kMostHeadBytes = 256UL * 1024;

long ShortenedToInt(std::chrono::milliseconds time) {
  return static_cast<long>(
      std::clamp<std::chrono::milliseconds::rep>(time.count(), 1, std::numeric_limits<int>::max()));
}

bool IsRedirect(long status) {
  return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

}  // namespace

template <typename Value>
void CurlHop::Set(CURLoption option, Value value) {
  const CURLcode code = CurlSetOption()(easy_.get(), option, value);
  if (code == CURLE_OUT_OF_MEMORY) throw std::bad_alloc();
  ThrowIfFailed(code);
}

CurlHop::CurlHop(const RequestAddress& address, const std::string& userAgent, const Limits& limits)
    : easy_(curl_easy_init()), host_(address.Host()), shownSeconds_(limits.shownSeconds) {
  if (!easy_) throw std::bad_alloc();
  Set(CURLOPT_URL, address.Url().c_str());
  if (address.RawTarget()) {
    Set(CURLOPT_REQUEST_TARGET, address.RawTarget()->c_str());
    Set(CURLOPT_PROXY, "");
  }
  Set(CURLOPT_PROTOCOLS_STR, "http,https");
  Set(CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
  Set(CURLOPT_HTTP09_ALLOWED, 0L);
  Set(CURLOPT_USERAGENT, userAgent.c_str());
  Set(CURLOPT_NOSIGNAL, 1L);
  // A name server that does not answer must not hold up a time-out or the end of the program.
  Set(CURLOPT_QUICK_EXIT, 1L);
  Set(CURLOPT_TIMEOUT_MS, ShortenedToInt(limits.time));
  Set(CURLOPT_CONNECTTIMEOUT_MS, ShortenedToInt(limits.time));
  Set(CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(kMostBodyBytes));
  Set(CURLOPT_WRITEFUNCTION, &CurlHop::OnBody);
  Set(CURLOPT_WRITEDATA, this);
  Set(CURLOPT_HEADERFUNCTION, &CurlHop::OnHead);
  Set(CURLOPT_HEADERDATA, this);
}

// The callbacks take fewer bytes than they were given to end the transfer. Nothing may be thrown
// through libcurl.
std::size_t CurlHop::OnBody(const char* bytes, std::size_t one, std::size_t count, void* hop) {
  try {
    return static_cast<CurlHop*>(hop)->Append(bytes, one * count) ? one * count : 0;
  } catch (const std::bad_alloc&) {
    return 0;
  }
}

std::size_t CurlHop::OnHead(const char* /*bytes*/, std::size_t one, std::size_t count, void* hop) {
  auto& headBytes = static_cast<CurlHop*>(hop)->headBytes_;
  headBytes += one * count;
  return headBytes <= kMostHeadBytes ? one * count : 0;
}

bool CurlHop::Append(const char* bytes, std::size_t count) {
  if (count > kMostBodyBytes - body_.size()) {
    bodyTooLarge_ = true;
    return false;
  }
  if (body_.empty()) {
    curl_off_t announced = 0;
    CurlGetInfo()(easy_.get(), CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &announced);
    if (announced > 0) body_.reserve(std::min(static_cast<std::size_t>(announced), kMostBodyBytes));
  }
  body_.append(bytes, count);
  return true;
}

void CurlHop::ThrowIfFailed(CURLcode code) const {
  if (code == CURLE_OK) return;
  throw TransportFailure(TransportFailure::Reason::Failed, WhyFailed(code));
}

// libcurl's own words are used only where they are constant: what it quotes from the other side
// may hold anything.
std::string CurlHop::WhyFailed(CURLcode code) const {
  if (bodyTooLarge_) code = CURLE_FILESIZE_EXCEEDED;
  if (headBytes_ > kMostHeadBytes) {
    return "the header of the answer of " + host_ + " is larger than 256 KiB";
  }
  switch (code) {
    case CURLE_COULDNT_RESOLVE_HOST:
      return "could not find the host " + host_;
    case CURLE_COULDNT_RESOLVE_PROXY:
      return "could not find the proxy on the way to " + host_;
    case CURLE_COULDNT_CONNECT:
      return "could not connect to " + host_;
    case CURLE_OPERATION_TIMEDOUT:
      return "no answer from " + host_ + " within " + std::to_string(shownSeconds_) +
             (shownSeconds_ == 1 ? " second" : " seconds");
    case CURLE_GOT_NOTHING:
      return host_ + " closed the connection without an answer";
    case CURLE_SEND_ERROR:
    case CURLE_RECV_ERROR:
      return "the connection to " + host_ + " was lost";
    case CURLE_PARTIAL_FILE:
      return "the answer of " + host_ + " was cut short";
    case CURLE_FILESIZE_EXCEEDED:
      return "the answer of " + host_ + " is larger than 16 MiB";
    case CURLE_UNSUPPORTED_PROTOCOL:
    case CURLE_WEIRD_SERVER_REPLY:
      return "the answer of " + host_ + " is not HTTP";
    case CURLE_PEER_FAILED_VERIFICATION:
      return "the certificate of " + host_ + " could not be verified";
    case CURLE_SSL_CONNECT_ERROR:
      return "could not make a secure connection to " + host_;
    default:
      return "could not fetch from " + host_ + ": " + curl_easy_strerror(code);
  }
}

std::optional<std::string> CurlHop::Location() const {
  long status = 0;
  CurlGetInfo()(easy_.get(), CURLINFO_RESPONSE_CODE, &status);
  curl_header* location = nullptr;
  if (!IsRedirect(status) ||
      curl_easy_header(easy_.get(), "Location", 0, CURLH_HEADER, -1, &location) != CURLHE_OK) {
    return std::nullopt;
  }
  // libcurl 7.88 leaves the line end of a header without a value.
  const std::string value(location->value);
  if (value.find_first_not_of("\r\n") == std::string::npos) return std::nullopt;
  return value;
}

}  // namespace tallyo
