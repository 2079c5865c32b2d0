#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tallyo {

// The address of one request, checked once and taken apart for sending.
class RequestAddress {
 public:
  // Throws TransportFailure (BadAddress) for every address that CheckAddress refuses.
  explicit RequestAddress(std::string_view address);

  // What libcurl is given: the whole address or, with a raw target, all before its path, and "/".
  [[nodiscard]] const std::string& Url() const { return url_; }

  // Path and query byte for byte, beginning with "/", where libcurl would refuse or change them.
  // Nothing where it sends the address as it stands.
  [[nodiscard]] const std::optional<std::string>& RawTarget() const { return rawTarget_; }

  // Host and port as the address has them, fit for a message: "127.0.0.1:8080". A name and
  // password in the address are not part of it.
  [[nodiscard]] const std::string& Host() const { return host_; }

  // The address that a Location header names, read against this one: without its fragment, with
  // blanks and bytes from 0x80 encoded. Throws TransportFailure (Failed) where the location cannot
  // be read, has another scheme than http and https, or leads from https to http.
  [[nodiscard]] RequestAddress Redirected(const std::string& location) const;

 private:
  std::string address_;
  std::string url_;
  std::optional<std::string> rawTarget_;
  std::string host_;
  bool secure_ = false;
};

}  // namespace tallyo
