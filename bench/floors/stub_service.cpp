// The other end of the refreshes that are measured: a service in a process of its own that knows
// one account and COUNT links, whose counters have all grown by GROWTH with each asking. Its
// answers are made before they are asked for, so that it costs both sides of a comparison the same
// little. Usage: stub-service COUNT GROWTH; the first line printed is its port. To each line on
// standard input it answers with the bytes received and sent until then.

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>
#include <thread>

#include "bench/made_links.h"

namespace tallyo::bench {
namespace {

std::string Answer(const std::string& body) {
  return "HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}

struct Traffic {
  std::atomic<long> received = 0;
  std::atomic<long> sent = 0;
};

class StubService {
 public:
  StubService(int count, int growth, Traffic& traffic)
      : count_(count), growth_(growth), traffic_(traffic) {
    NextCounters();
  }

  // Answers the requests of one connection until it is closed.
  void Serve(int connection) {
    std::string received;
    std::array<char, 4096> buffer{};
    for (ssize_t size = 0; (size = ::read(connection, buffer.data(), buffer.size())) > 0;) {
      received.append(buffer.data(), static_cast<std::size_t>(size));
      traffic_.received += size;
      for (std::size_t end = 0; (end = received.find("\r\n\r\n")) != std::string::npos;) {
        const bool counters = received.substr(0, end).find("action=show") != std::string::npos;
        received.erase(0, end + 4);
        Send(connection, counters ? counters_ : account_);
        if (counters) {
          NextCounters();
        }
      }
    }
    ::close(connection);
  }

 private:
  void Send(int connection, std::string_view bytes) {
    while (!bytes.empty()) {
      const ssize_t sent = ::send(connection, bytes.data(), bytes.size(), MSG_NOSIGNAL);
      if (sent <= 0) {
        return;
      }
      traffic_.sent += sent;
      bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
  }

  void NextCounters() {
    counter_ += growth_;
    counters_ = Answer(Reply(count_, counter_));
  }

  int count_;
  int growth_;
  Traffic& traffic_;
  int counter_ = 7;
  std::string account_ = Answer(kAccountRecord);
  std::string counters_;
};

int Listen() {
  const int listening = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  if (::bind(listening, reinterpret_cast<const sockaddr*>(&address), size) != 0 ||
      ::listen(listening, 16) != 0 ||
      ::getsockname(listening, reinterpret_cast<sockaddr*>(&address), &size) != 0) {
    std::cerr << "stub-service: no port\n";
    std::exit(1);
  }
  std::cout << ntohs(address.sin_port) << std::endl;
  return listening;
}

}  // namespace
}  // namespace tallyo::bench

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "Usage: stub-service COUNT GROWTH\n";
    return 2;
  }
  const int listening = tallyo::bench::Listen();
  tallyo::bench::Traffic traffic;
  std::thread([&traffic] {
    for (std::string line; std::getline(std::cin, line);) {
      std::cout << traffic.received << " " << traffic.sent << std::endl;
    }
  }).detach();
  // Each connection has counters of its own, so that two askers see the same.
  for (;;) {
    const int connection = ::accept(listening, nullptr, nullptr);
    const int on = 1;
    ::setsockopt(connection, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    std::thread([&traffic, connection, count = std::atoi(argv[1]), growth = std::atoi(argv[2])] {
      tallyo::bench::StubService(count, growth, traffic).Serve(connection);
    }).detach();
  }
}
