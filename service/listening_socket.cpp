#include "service/listening_socket.h"

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <system_error>

namespace tallyo::service {

namespace {

std::optional<std::uint16_t> ParsePort(std::string_view text) {
  std::uint16_t port = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), port);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return port;
}

// One view of the bytes of a socket address for each family.
template <typename FamilyAddress>
FamilyAddress Read(const sockaddr_storage& storage) {
  FamilyAddress address{};
  std::memcpy(&address, &storage, sizeof(address));
  return address;
}

template <typename FamilyAddress>
void Write(sockaddr_storage& storage, const FamilyAddress& address) {
  std::memcpy(&storage, &address, sizeof(address));
}

[[noreturn]] void FailListening(const ListenAddress& address) {
  throw CannotListen("cannot listen on " + address.Url() + ": " +
                     std::system_category().message(errno));
}

void SetOption(int socket, int level, int option, int value) {
  setsockopt(socket, level, option, &value, sizeof(value));
}

}  // namespace

std::optional<ListenAddress> ListenAddress::Parse(std::string_view text) {
  const auto colon = text.rfind(':');
  if (colon == std::string_view::npos) return std::nullopt;
  const std::optional<std::uint16_t> port = ParsePort(text.substr(colon + 1));
  if (!port) return std::nullopt;
  std::string host(text.substr(0, colon));
  ListenAddress address;
  if (host.size() > 2 && host.front() == '[' && host.back() == ']') {
    host = host.substr(1, host.size() - 2);
    sockaddr_in6 ipv6{};
    ipv6.sin6_family = AF_INET6;
    ipv6.sin6_port = htons(*port);
    if (inet_pton(AF_INET6, host.c_str(), &ipv6.sin6_addr) != 1) return std::nullopt;
    Write(address.storage_, ipv6);
    return address;
  }
  sockaddr_in ipv4{};
  ipv4.sin_family = AF_INET;
  ipv4.sin_port = htons(*port);
  if (inet_pton(AF_INET, host.c_str(), &ipv4.sin_addr) != 1) return std::nullopt;
  Write(address.storage_, ipv4);
  return address;
}

ListenAddress ListenAddress::Of(int socket) {
  ListenAddress address;
  socklen_t size = sizeof(address.storage_);
  void* storage = &address.storage_;
  getsockname(socket, static_cast<sockaddr*>(storage), &size);
  return address;
}

std::string ListenAddress::Url() const {
  std::array<char, INET6_ADDRSTRLEN> host{};
  if (IsIpv6()) {
    const auto ipv6 = Read<sockaddr_in6>(storage_);
    inet_ntop(AF_INET6, &ipv6.sin6_addr, host.data(), host.size());
    return "http://[" + std::string(host.data()) + "]:" + std::to_string(ntohs(ipv6.sin6_port)) +
           "/";
  }
  const auto ipv4 = Read<sockaddr_in>(storage_);
  inet_ntop(AF_INET, &ipv4.sin_addr, host.data(), host.size());
  return "http://" + std::string(host.data()) + ":" + std::to_string(ntohs(ipv4.sin_port)) + "/";
}

const sockaddr* ListenAddress::Data() const {
  const void* storage = &storage_;
  return static_cast<const sockaddr*>(storage);
}

socklen_t ListenAddress::Size() const {
  return IsIpv6() ? sizeof(sockaddr_in6) : sizeof(sockaddr_in);
}

ListeningSocket::ListeningSocket(const ListenAddress& address) {
  const int family = address.IsIpv6() ? AF_INET6 : AF_INET;
  descriptor_ = socket(family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
  if (descriptor_ < 0) FailListening(address);
  SetOption(descriptor_, SOL_SOCKET, SO_REUSEADDR, 1);
  if (address.IsIpv6()) SetOption(descriptor_, IPPROTO_IPV6, IPV6_V6ONLY, 0);
  if (bind(descriptor_, address.Data(), address.Size()) != 0 ||
      listen(descriptor_, SOMAXCONN) != 0) {
    const int reason = errno;
    close(descriptor_);
    errno = reason;
    FailListening(address);
  }
}

ListeningSocket::~ListeningSocket() {
  if (descriptor_ >= 0) close(descriptor_);
}

}  // namespace tallyo::service
