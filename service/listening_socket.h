#pragma once

#include <netinet/in.h>
#include <sys/socket.h>

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace tallyo::service {

// A numeric address and a port, as a socket takes it.
class ListenAddress {
 public:
  // "127.0.0.1:8080" or "[::1]:8080"; nothing where the text is neither. Port 0 stands for a free
  // one.
  [[nodiscard]] static std::optional<ListenAddress> Parse(std::string_view text);
  // Where a socket listens.
  [[nodiscard]] static ListenAddress Of(int socket);

  // "http://127.0.0.1:8080/" or "http://[::1]:8080/".
  [[nodiscard]] std::string Url() const;
  [[nodiscard]] bool IsIpv6() const { return storage_.ss_family == AF_INET6; }
  [[nodiscard]] const sockaddr* Data() const;
  [[nodiscard]] socklen_t Size() const;

 private:
  sockaddr_storage storage_{};
};

class CannotListen : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Listens from its making to its end. [::] takes IPv4 connections too.
class ListeningSocket {
 public:
  explicit ListeningSocket(const ListenAddress& address);  // throws CannotListen
  ~ListeningSocket();
  ListeningSocket(const ListeningSocket&) = delete;
  ListeningSocket& operator=(const ListeningSocket&) = delete;

  // Leaves the closing to somebody else.
  [[nodiscard]] int Release() { return std::exchange(descriptor_, -1); }
  [[nodiscard]] int Descriptor() const { return descriptor_; }
  [[nodiscard]] ListenAddress Address() const { return ListenAddress::Of(descriptor_); }

 private:
  int descriptor_ = -1;
};

}  // namespace tallyo::service
