#include "service/allowed_networks.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstring>

namespace tallyo::service {

namespace {

constexpr unsigned kIpv4PrefixBits = 96;  // of ::ffff:0:0/96

NetworkAddress FromIpv4(const in_addr& ipv4) {
  NetworkAddress address{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xFF, 0xFF};
  std::memcpy(address.data() + 12, &ipv4, sizeof(ipv4));
  return address;
}

NetworkAddress FromIpv6(const in6_addr& ipv6) {
  NetworkAddress address{};
  std::memcpy(address.data(), &ipv6, address.size());
  return address;
}

std::optional<unsigned> ParsePrefix(std::string_view text, unsigned most) {
  unsigned bits = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), bits);
  if (error != std::errc() || end != text.data() + text.size() || bits > most) return std::nullopt;
  return bits;
}

}  // namespace

std::optional<NetworkAddress> AddressOf(const sockaddr* peer) {
  if (peer == nullptr) return std::nullopt;
  if (peer->sa_family == AF_INET) {
    sockaddr_in ipv4{};
    std::memcpy(&ipv4, peer, sizeof(ipv4));
    return FromIpv4(ipv4.sin_addr);
  }
  if (peer->sa_family == AF_INET6) {
    sockaddr_in6 ipv6{};
    std::memcpy(&ipv6, peer, sizeof(ipv6));
    return FromIpv6(ipv6.sin6_addr);
  }
  return std::nullopt;
}

std::optional<Network> Network::Parse(std::string_view text) {
  const std::size_t slash = std::min(text.find('/'), text.size());
  const std::string address(text.substr(0, slash));
  Network network;
  unsigned familyBits = 0;  // in front of the part that the text speaks of
  in_addr ipv4{};
  in6_addr ipv6{};
  if (inet_pton(AF_INET, address.c_str(), &ipv4) == 1) {
    network.address_ = FromIpv4(ipv4);
    familyBits = kIpv4PrefixBits;
  } else if (inet_pton(AF_INET6, address.c_str(), &ipv6) == 1) {
    network.address_ = FromIpv6(ipv6);
  } else {
    return std::nullopt;
  }
  network.prefixBits_ = 128;
  if (slash == text.size()) return network;
  const std::optional<unsigned> bits = ParsePrefix(text.substr(slash + 1), 128 - familyBits);
  if (!bits) return std::nullopt;
  network.prefixBits_ = familyBits + *bits;
  return network;
}

bool Network::Contains(const NetworkAddress& address) const {
  const std::size_t wholeBytes = prefixBits_ / 8;
  const auto whole = static_cast<std::ptrdiff_t>(wholeBytes);
  if (!std::equal(address_.begin(), address_.begin() + whole, address.begin())) return false;
  const unsigned restBits = prefixBits_ % 8;
  if (restBits == 0) return true;
  const unsigned different =
      static_cast<unsigned>(address_.at(wholeBytes)) ^ address.at(wholeBytes);
  return (different >> (8 - restBits)) == 0;
}

AllowedNetworks AllowedNetworks::Loopback() {
  return AllowedNetworks({*Network::Parse("127.0.0.0/8"), *Network::Parse("::1")});
}

bool AllowedNetworks::Contains(const sockaddr* peer) const {
  const std::optional<NetworkAddress> address = AddressOf(peer);
  return address && std::any_of(networks_.begin(), networks_.end(),
                                [&](const Network& network) { return network.Contains(*address); });
}

}  // namespace tallyo::service
