#pragma once

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

#include "service/allowed_networks.h"
#include "service/answer.h"
#include "service/link_index.h"
#include "service/listening_socket.h"
#include "service/request_target.h"

struct MHD_Daemon;

namespace tallyo::service {

class CannotServe : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Who answers what account owners ask: takes a request and, once, calls back with the answer, on
// whatever thread. The request's texts live until then. False where nothing is taken any more; then
// nothing is called.
using AnswerDone = std::function<void(Answer)>;
using AskDesk = std::function<bool(const Request&, AnswerDone)>;

// Everything an exchange needs besides its own request.
struct ServedBy {
  LinkIndex& index;
  AskDesk askDesk;
  AllowedNetworks managers;
};

// Answers HTTP requests on its own threads, visitors from memory, from its making to Stop.
class HttpServer {
 public:
  // mostConnections: further ones wait until one of these has ended. Throws CannotServe.
  HttpServer(ListeningSocket& socket, ServedBy servedBy, unsigned mostConnections);
  ~HttpServer();
  HttpServer(const HttpServer&) = delete;
  HttpServer& operator=(const HttpServer&) = delete;

  // Takes no new connections. Those that are open go on.
  void StopListening();
  // Ends all connections. No request may be waiting at the desk.
  void Stop();

 private:
  ServedBy servedBy_;
  MHD_Daemon* daemon_ = nullptr;
};

}  // namespace tallyo::service
