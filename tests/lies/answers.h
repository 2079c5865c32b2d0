#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tallyo::test {

inline const std::string ok = "HTTP/1.1 200 OK\r\n";
inline const std::string chunked = ok + "Transfer-Encoding: chunked\r\n\r\n";

// An answer of proper form with this body.
inline std::string Whole(const std::string& body, const std::string& head = ok) {
  return head + "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}

inline std::string Many(std::size_t count, std::string_view part) {
  std::string all;
  for (std::size_t i = 0; i < count; ++i) all += part;
  return all;
}

}  // namespace tallyo::test
