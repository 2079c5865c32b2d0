#include "service/http_server.h"

#include <microhttpd.h>
#include <unistd.h>

#include <algorithm>
#include <exception>
#include <new>
#include <thread>
#include <utility>

#include "service/exchange.h"

namespace tallyo::service {

namespace {

constexpr unsigned kIdleTimeoutSeconds = 30;
// For the request line, the header lines and the answer's head together.
constexpr std::size_t kConnectionMemoryBytes = std::size_t{32} * 1024;
// Half of the processors: the other half is for the system's own work on the same connections.
constexpr unsigned kMostThreads = 4;

Exchange* ExchangeOf(MHD_Connection* connection) {
  const MHD_ConnectionInfo* info =
      MHD_get_connection_info(connection, MHD_CONNECTION_INFO_SOCKET_CONTEXT);
  return info == nullptr ? nullptr : static_cast<Exchange*>(info->socket_context);
}

// Null where there is no memory for it: the connection then ends with its first request.
Exchange* MakeExchange(const ServedBy& servedBy) {
  try {
    return std::make_unique<Exchange>(servedBy).release();
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

void NoteConnection(void* servedBy, MHD_Connection* /*connection*/, void** context,
                    MHD_ConnectionNotificationCode code) {
  if (code == MHD_CONNECTION_NOTIFY_STARTED) {
    *context = MakeExchange(*static_cast<const ServedBy*>(servedBy));
  } else {
    const std::unique_ptr<Exchange> ended(static_cast<Exchange*>(*context));
    *context = nullptr;
  }
}

void* BeginRequest(void* /*nothing*/, const char* target, MHD_Connection* connection) {
  Exchange* exchange = ExchangeOf(connection);
  if (exchange == nullptr) return nullptr;
  try {
    exchange->Begin(target);
    return exchange;
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

// The library's own reading of the target is not used: nothing in it may be decoded.
MHD_Result ContinueRequest(void* /*nothing*/, MHD_Connection* connection, const char* /*path*/,
                           const char* method, const char* version, const char* /*body*/,
                           std::size_t* bodyBytes, void** context) {
  auto* exchange = static_cast<Exchange*>(*context);
  if (exchange == nullptr) return MHD_NO;
  try {
    return exchange->Continue(connection, method, version, *bodyBytes) ? MHD_YES : MHD_NO;
  } catch (const std::exception&) {
    return MHD_NO;  // out of memory: the connection ends, the others go on
  }
}

std::size_t LeaveAsItIs(void* /*nothing*/, MHD_Connection* /*connection*/, char* text) {
  return std::char_traits<char>::length(text);
}

}  // namespace

HttpServer::HttpServer(ListeningSocket& socket, ServedBy servedBy, unsigned mostConnections)
    : servedBy_(std::move(servedBy)) {
  const bool hasEpoll = MHD_is_feature_supported(MHD_FEATURE_EPOLL) == MHD_YES;
  unsigned flags = hasEpoll ? MHD_USE_EPOLL : MHD_USE_AUTO;
  flags |= MHD_USE_INTERNAL_POLLING_THREAD | MHD_ALLOW_SUSPEND_RESUME | MHD_USE_ITC;
  if (socket.Address().IsIpv6()) flags |= MHD_USE_IPv6;
  const unsigned threads = std::clamp(std::thread::hardware_concurrency() / 2, 1U, kMostThreads);
  void* own = &servedBy_;
  daemon_ =
      MHD_start_daemon(flags, 0, nullptr, nullptr, &ContinueRequest, nullptr,  //
                       MHD_OPTION_LISTEN_SOCKET, socket.Descriptor(),          //
                       MHD_OPTION_URI_LOG_CALLBACK, &BeginRequest, nullptr,    //
                       MHD_OPTION_UNESCAPE_CALLBACK, &LeaveAsItIs, nullptr,    //
                       MHD_OPTION_NOTIFY_CONNECTION, &NoteConnection, own,     //
                       MHD_OPTION_STRICT_FOR_CLIENT, 0,  // raw blanks in the target
                       MHD_OPTION_CONNECTION_LIMIT, std::max(mostConnections, threads),
                       MHD_OPTION_CONNECTION_TIMEOUT, kIdleTimeoutSeconds,
                       MHD_OPTION_CONNECTION_MEMORY_LIMIT, kConnectionMemoryBytes,
                       MHD_OPTION_THREAD_POOL_SIZE, threads > 1 ? threads : 0U, MHD_OPTION_END);
  if (daemon_ == nullptr) throw CannotServe("the HTTP server cannot be started");
  static_cast<void>(socket.Release());  // the library closes it
}

HttpServer::~HttpServer() { Stop(); }

void HttpServer::StopListening() {
  const int socket = MHD_quiesce_daemon(daemon_);
  if (socket != MHD_INVALID_SOCKET) close(socket);
}

void HttpServer::Stop() {
  if (daemon_ != nullptr) MHD_stop_daemon(std::exchange(daemon_, nullptr));
}

}  // namespace tallyo::service
