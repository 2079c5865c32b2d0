#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace tallyo::service {

// A connection to a server on this machine that sends exactly the bytes it is given.
class RawConnection {
 public:
  explicit RawConnection(std::uint16_t port) : socket_(socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const timeval patience{20, 0};
    setsockopt(socket_, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof(patience));
    const void* bytes = &address;
    isOpen_ = connect(socket_, static_cast<const sockaddr*>(bytes), sizeof(address)) == 0;
  }
  ~RawConnection() { close(socket_); }
  RawConnection(const RawConnection&) = delete;
  RawConnection& operator=(const RawConnection&) = delete;

  [[nodiscard]] bool IsOpen() const { return isOpen_; }

  void Send(std::string_view bytes) const {
    while (!bytes.empty()) {
      const auto sent = send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
      if (sent <= 0) return;
      bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
  }

  [[nodiscard]] std::string ReadToTheEnd() const {
    std::string all;
    std::array<char, 4096> piece{};
    for (;;) {
      const auto count = recv(socket_, piece.data(), piece.size(), 0);
      if (count <= 0) return all;
      all.append(piece.data(), static_cast<std::size_t>(count));
    }
  }

  // Of the next answer what ends with an empty line; shorter where the connection ends before.
  [[nodiscard]] std::string ReadHead() const {
    std::string head;
    char byte = 0;
    while (!head.ends_with("\r\n\r\n") && recv(socket_, &byte, 1, 0) == 1) head += byte;
    return head;
  }

  // The server reads the end of what was sent; its answer can still be read.
  void EndSending() const { shutdown(socket_, SHUT_WR); }

 private:
  int socket_;
  bool isOpen_ = false;
};

struct Reply {
  int status = 0;
  std::string head;
  std::string body;
};

inline Reply ReplyOf(const std::string& bytes) {
  Reply reply;
  const auto end = bytes.find("\r\n\r\n");
  if (!bytes.starts_with("HTTP/1.1 ") || end == std::string::npos) return reply;
  reply.status = std::stoi(bytes.substr(9, 3));
  reply.head = bytes.substr(0, end + 2);
  reply.body = bytes.substr(end + 4);
  return reply;
}

// One request on a connection of its own. The header lines end with CR LF.
inline Reply Ask(std::uint16_t port, std::string_view target, std::string_view headerLines = "",
                 std::string_view method = "GET") {
  const RawConnection connection(port);
  connection.Send(std::string(method) + " " + std::string(target) +
                  " HTTP/1.1\r\nHost: localhost\r\nConnection: close\r\n" +
                  std::string(headerLines) + "\r\n");
  return ReplyOf(connection.ReadToTheEnd());
}

inline std::uint16_t PortOf(const std::string& url) {
  return static_cast<std::uint16_t>(std::stoi(url.substr(url.rfind(':') + 1)));
}

}  // namespace tallyo::service
