#pragma once

#include <curl/curl.h>

#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "platform/request_address.h"

namespace tallyo {

// One request to one address and what comes back. A redirect is the answer of its hop; the next
// hop is another object, so that nothing of the first can go out again with the second.
class CurlHop {
 public:
  struct Limits {
    std::chrono::milliseconds time;  // from the first slice on; at least 1
    int shownSeconds;                // the time-out that a message names
  };

  CurlHop(const RequestAddress& address, const std::string& userAgent, const Limits& limits);
  ~CurlHop() = default;
  CurlHop(const CurlHop&) = delete;
  CurlHop& operator=(const CurlHop&) = delete;

  // For driving the transfer; remains with this object.
  [[nodiscard]] CURL* Handle() const { return easy_.get(); }

  // Throws TransportFailure (Failed) unless the transfer has ended well.
  void ThrowIfFailed(CURLcode code) const;

  // The Location of a redirect; nothing for every other answer.
  [[nodiscard]] std::optional<std::string> Location() const;

  // The whole body, which the hop gives away.
  [[nodiscard]] std::string TakeBody() { return std::move(body_); }

 private:
  struct CloseEasy {
    void operator()(CURL* easy) const { curl_easy_cleanup(easy); }
  };
  static std::size_t OnBody(const char* bytes, std::size_t one, std::size_t count, void* hop);
  static std::size_t OnHead(const char* bytes, std::size_t one, std::size_t count, void* hop);
  template <typename Value>
  void Set(CURLoption option, Value value);
  [[nodiscard]] bool Append(const char* bytes, std::size_t count);
  [[nodiscard]] std::string WhyFailed(CURLcode code) const;

  std::unique_ptr<CURL, CloseEasy> easy_;
  std::string host_;
  int shownSeconds_;
  std::string body_;
  std::size_t headBytes_ = 0;
  bool bodyTooLarge_ = false;
};

}  // namespace tallyo
