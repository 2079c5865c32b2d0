#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "service/http_server.h"
#include "service/request_headers.h"

struct MHD_Connection;

namespace tallyo::service {

// The requests of one connection, one after the other. The HTTP library calls in with each piece of
// a request as it arrives.
class Exchange {
 public:
  explicit Exchange(const ServedBy& servedBy) : servedBy_(servedBy) {}

  // A new request has begun; its target stands in the library's memory.
  void Begin(const char* target);

  // The head of the request is there, or a piece of its body, or its end, or the answer of the
  // desk. False ends the connection.
  [[nodiscard]] bool Continue(MHD_Connection* connection, std::string_view method,
                              const char* version, std::size_t& bodyBytes);

 private:
  enum class Stage { Head, Body, AtTheDesk, Answered };

  [[nodiscard]] bool DropBody(std::size_t& bytes);
  [[nodiscard]] bool Respond(MHD_Connection* connection, std::string_view method,
                             const char* version);
  [[nodiscard]] bool Follow(MHD_Connection* connection, const FollowLink& link, bool isHead);
  [[nodiscard]] bool Manage(MHD_Connection* connection, const Request& request, bool isHead);

  const ServedBy& servedBy_;
  Stage stage_ = Stage::Head;
  std::string target_;
  const char* targetPlace_ = nullptr;
  RequestHeaders headers_;
  std::size_t droppedBytes_ = 0;
  Answer answer_;
};

}  // namespace tallyo::service
