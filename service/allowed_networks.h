#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

struct sockaddr;

namespace tallyo::service {

// An address of either family; an IPv4 one stands as ::ffff:a.b.c.d, which is how a socket of both
// families shows it too.
using NetworkAddress = std::array<unsigned char, 16>;

// Nothing for an address of another family.
[[nodiscard]] std::optional<NetworkAddress> AddressOf(const sockaddr* peer);

// The network of a text like "192.168.0.0/16", "fd00::/8" or "::1".
class Network {
 public:
  // Nothing where the text is no such network. Bits behind the prefix are ignored.
  [[nodiscard]] static std::optional<Network> Parse(std::string_view text);

  [[nodiscard]] bool Contains(const NetworkAddress& address) const;

 private:
  NetworkAddress address_{};
  unsigned prefixBits_ = 0;  // of the 128
};

class AllowedNetworks {
 public:
  AllowedNetworks() = default;
  explicit AllowedNetworks(std::vector<Network> networks) : networks_(std::move(networks)) {}
  [[nodiscard]] static AllowedNetworks Loopback();

  [[nodiscard]] bool Contains(const sockaddr* peer) const;

 private:
  std::vector<Network> networks_;
};

}  // namespace tallyo::service
