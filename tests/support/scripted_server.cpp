#include "tests/support/scripted_server.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <system_error>
#include <utility>

namespace tallyo::test {
namespace {

constexpr std::chrono::seconds kLongestWait(10);

int Checked(int result) {
  if (result < 0) throw std::system_error(errno, std::generic_category(), "scripted server");
  return result;
}

// The socket interface knows addresses of every kind by this type only.
sockaddr* Generic(sockaddr_in& address) { return reinterpret_cast<sockaddr*>(&address); }

int Listen() {
  const int listener =
      Checked(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, IPPROTO_TCP));
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  Checked(::bind(listener, Generic(address), sizeof address));
  Checked(::listen(listener, SOMAXCONN));
  return listener;
}

std::uint16_t PortOf(int listener) {
  sockaddr_in address{};
  socklen_t size = sizeof address;
  Checked(::getsockname(listener, Generic(address), &size));
  return ntohs(address.sin_port);
}

std::string FirstLineOf(const std::string& head) { return head.substr(0, head.find("\r\n")); }

// A raw target may hold blanks itself.
std::string TargetOf(const std::string& head) {
  const std::string line = FirstLineOf(head);
  const std::size_t begin = std::min(line.find(' '), line.size() - 1) + 1;
  return line.substr(begin, line.rfind(" HTTP/") - begin);
}

}  // namespace

ScriptedServer::ScriptedServer() : wake_(Checked(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC))) {
  listener_.emplace(Listen());
  port_ = PortOf(listener_->Number());
  thread_ = std::thread([this] { Run(); });
}

ScriptedServer::~ScriptedServer() {
  {
    const std::lock_guard lock(mutex_);
    stopping_ = true;
  }
  Wake();
  thread_.join();
}

std::string ScriptedServer::HostAndPort() const { return "127.0.0.1:" + std::to_string(port_); }

std::string ScriptedServer::Url(std::string_view path) const {
  return "http://" + HostAndPort() + std::string(path);
}

void ScriptedServer::Answer(std::string_view prefix, std::string_view body) {
  AnswerWith(prefix, {.body = std::string(body)});
}

void ScriptedServer::AnswerWith(std::string_view prefix, const Reply& reply) {
  const std::lock_guard lock(mutex_);
  answers_.Always(prefix, Written(reply));
}

void ScriptedServer::AnswerRaw(std::string_view prefix, std::string_view bytes, Then then) {
  const std::lock_guard lock(mutex_);
  answers_.Always(prefix, {.bytes = std::string(bytes), .then = then});
}

void ScriptedServer::AnswerEndlessly(std::string_view prefix, std::string_view head,
                                     std::string_view chunk) {
  const std::lock_guard lock(mutex_);
  answers_.Always(prefix,
                  {.bytes = std::string(head), .then = Then::Repeat, .chunk = std::string(chunk)});
}

void ScriptedServer::AnswerOnce(std::string_view prefix, std::string_view body) {
  AnswerOnceWith(prefix, {.body = std::string(body)});
}

void ScriptedServer::AnswerOnceWith(std::string_view prefix, const Reply& reply) {
  const std::lock_guard lock(mutex_);
  answers_.Once(prefix, Written(reply));
}

void ScriptedServer::AnswerOnceRaw(std::string_view prefix, std::string_view bytes, Then then) {
  const std::lock_guard lock(mutex_);
  answers_.Once(prefix, {.bytes = std::string(bytes), .then = then});
}

void ScriptedServer::Hold(std::string_view prefix) {
  const std::lock_guard lock(mutex_);
  held_.emplace_back(prefix);
}

void ScriptedServer::Release() {
  {
    const std::lock_guard lock(mutex_);
    held_.clear();
  }
  Wake();
}

void ScriptedServer::RefuseConnections() {
  std::unique_lock lock(mutex_);
  refusing_ = true;
  Wake();
  changed_.wait_for(lock, kLongestWait, [this] { return closed_; });
}

std::vector<std::string> ScriptedServer::Requests() const {
  std::vector<std::string> lines = RawRequests();
  for (std::string& line : lines) line = FirstLineOf(line);
  return lines;
}

std::vector<std::string> ScriptedServer::RawRequests() const {
  const std::lock_guard lock(mutex_);
  return heads_;
}

int ScriptedServer::Connections() const {
  const std::lock_guard lock(mutex_);
  return connections_;
}

bool ScriptedServer::WaitForRequests(std::size_t count) const {
  std::unique_lock lock(mutex_);
  return changed_.wait_for(lock, kLongestWait, [&] { return heads_.size() >= count; });
}

void ScriptedServer::Wake() const { ::eventfd_write(wake_.Number(), 1); }

void ScriptedServer::ClearWake() const {
  eventfd_t ignored = 0;
  ::eventfd_read(wake_.Number(), &ignored);
}

void ScriptedServer::Run() {
  while (true) {
    WaitForEvents();
    ClearWake();
    const std::lock_guard lock(mutex_);
    if (stopping_) return;
    if (refusing_) {
      listener_.reset();
      clients_.clear();
      closed_ = true;
      changed_.notify_all();
      continue;
    }
    Accept();
    clients_.remove_if([this](Client& client) { return !Serve(client); });
  }
}

void ScriptedServer::WaitForEvents() const {
  std::vector<pollfd> watched = {{.fd = wake_.Number(), .events = POLLIN, .revents = 0}};
  if (listener_) watched.push_back({.fd = listener_->Number(), .events = POLLIN, .revents = 0});
  for (const Client& client : clients_) {
    const int events = POLLIN | (client.connection.WantsToSend() ? POLLOUT : 0);
    watched.push_back(
        {.fd = client.connection.Socket(), .events = static_cast<short>(events), .revents = 0});
  }
  ::poll(watched.data(), watched.size(), -1);
}

void ScriptedServer::Accept() {
  while (true) {
    const int socket =
        ::accept4(listener_->Number(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
    if (socket < 0) return;
    clients_.emplace_back(socket);
    ++connections_;
  }
}

// False where the connection is over.
bool ScriptedServer::Serve(Client& client) {
  ScriptedConnection& connection = client.connection;
  if (!connection.Receive()) return false;
  if (const auto head = connection.TakeRequest()) {
    heads_.push_back(*head);
    client.waiting = TargetOf(*head);
    changed_.notify_all();
  }
  if (client.waiting && !Held(*client.waiting)) {
    connection.Answer(answers_.Take(*client.waiting));
    client.waiting.reset();
  }
  return connection.Send();
}

bool ScriptedServer::Held(std::string_view target) const {
  return std::any_of(held_.begin(), held_.end(),
                     [&](const std::string& prefix) { return target.starts_with(prefix); });
}

}  // namespace tallyo::test
