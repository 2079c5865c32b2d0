#include "service/allowed_networks.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>

#include <string>

#include "tests/support/table.h"

namespace tallyo::service {
namespace {

bool IsIn(const std::string& peer, const std::string& network) {
  sockaddr_in6 ipv6{};
  sockaddr_in ipv4{};
  const void* address = &ipv6;
  if (inet_pton(AF_INET6, peer.c_str(), &ipv6.sin6_addr) == 1) {
    ipv6.sin6_family = AF_INET6;
  } else {
    inet_pton(AF_INET, peer.c_str(), &ipv4.sin_addr);
    ipv4.sin_family = AF_INET;
    address = &ipv4;
  }
  const auto parsed = Network::Parse(network);
  return parsed && AllowedNetworks({*parsed}).Contains(static_cast<const sockaddr*>(address));
}

TEST(AllowedNetworks, HoldTheAddressesOfTheirPrefix) {
  const test::Table<const char*, const char*, bool> cases = {
      {"10.255.0.1", "10.1.2.3/8", true},  // bits behind the prefix do not matter
      {"11.0.0.1", "10.0.0.0/8", false},
      {"172.31.9.9", "172.16.0.0/12", true},
      {"172.32.0.0", "172.16.0.0/12", false},
      {"192.168.1.6", "192.168.1.7/32", false},
      {"2001:db8::1", "0.0.0.0/0", false},
      {"fd12::1", "fc00::/7", true},
      {"fe80::1", "fc00::/7", false},
      {"::2", "::1", false},
      {"8.8.8.8", "::/0", true},
      // An IPv4 address in IPv6 clothes.
      {"::ffff:10.1.2.3", "10.0.0.0/8", true},
      {"::ffff:11.1.2.3", "10.0.0.0/8", false},
      {"10.1.2.3", "::ffff:10.0.0.0/104", true},
      {"::10.1.2.3", "10.0.0.0/8", false}};
  for (const auto& [peer, network, isIn] : cases) {
    EXPECT_EQ(IsIn(peer, network), isIn) << peer << " " << network;
  }
  for (const char* text : {"", "/8", "10.0.0.0/", "10.0.0.0/33", "10.0.0.0/-1", "10.0.0.0/8x",
                           "10.0.0/8", "::1/129", "localhost", "10.0.0.0/8/8", " 10.0.0.0/8"}) {
    EXPECT_FALSE(Network::Parse(text)) << text;
  }
}

}  // namespace
}  // namespace tallyo::service
