#include "tests/support/scripted_server.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
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

std::string FirstLineOf(const std::string& head) { return head.substr(0, head.find("\r\n")); }

// A raw target may hold blanks itself.
std::string TargetOf(const std::string& head) {
  const std::string line = FirstLineOf(head);
  const std::size_t begin = std::min(line.find(' '), line.size() - 1) + 1;
  return line.substr(begin, line.rfind(" HTTP/") - begin);
}

}  // namespace

ScriptedServer::ScriptedServer() : wake_(Checked(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC))) {
  listener_.emplace(Checked(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)));
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  // The socket interface knows addresses of every kind by this type only.
  auto* const generic = reinterpret_cast<sockaddr*>(&address);
  Checked(::bind(listener_->Number(), generic, size));
  Checked(::listen(listener_->Number(), SOMAXCONN));
  Checked(::getsockname(listener_->Number(), generic, &size));
  port_ = ntohs(address.sin_port);
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

ScriptedServer::RawAnswer ScriptedServer::Written(const Reply& reply) {
  const bool hasBody = reply.status != 204 && reply.status != 304;
  std::string bytes = "HTTP/1.1 " + std::to_string(reply.status) + " Scripted\r\n";
  for (const std::string& header : reply.headers) bytes += header + "\r\n";
  if (hasBody) bytes += "Content-Length: " + std::to_string(reply.body.size()) + "\r\n";
  return {.bytes = bytes + "\r\n" + (hasBody ? reply.body : "")};
}

void ScriptedServer::Set(std::string_view prefix, RawAnswer answer) {
  const std::lock_guard lock(mutex_);
  answers_[std::string(prefix)].always = std::move(answer);
}

void ScriptedServer::AnswerEndlessly(std::string_view prefix, std::string_view head,
                                     std::string_view chunk) {
  Set(prefix, {.bytes = std::string(head), .then = Then::Repeat, .chunk = std::string(chunk)});
}

void ScriptedServer::AnswerOnce(std::string_view prefix, std::string_view body) {
  const std::lock_guard lock(mutex_);
  answers_[std::string(prefix)].once.push_back(Written({.body = std::string(body)}));
}

ScriptedServer::RawAnswer ScriptedServer::TakeAnswer(std::string_view target) {
  Answers* best = nullptr;
  for (auto& [prefix, answers] : answers_) {  // in order, so that a longer match comes later
    if (target.starts_with(prefix) && (answers.always || !answers.once.empty())) best = &answers;
  }
  if (best == nullptr) return Written({.status = 404, .body = "404 Not Found"});
  if (best->once.empty()) return *best->always;
  RawAnswer answer = std::move(best->once.front());
  best->once.pop_front();
  return answer;
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

bool ScriptedServer::Held(std::string_view target) const {
  return std::ranges::any_of(held_,
                             [&](const std::string& prefix) { return target.starts_with(prefix); });
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

void ScriptedServer::Run() {
  while (true) {
    WaitForEvents();
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
    const bool unsent = client.answer && client.sent < client.answer->bytes.size();
    const int events = POLLIN | (unsent ? POLLOUT : 0);
    watched.push_back(
        {.fd = client.socket.Number(), .events = static_cast<short>(events), .revents = 0});
  }
  ::poll(watched.data(), watched.size(), -1);
  eventfd_t ignored = 0;
  ::eventfd_read(wake_.Number(), &ignored);
}

void ScriptedServer::Accept() {
  constexpr int kFlags = SOCK_NONBLOCK | SOCK_CLOEXEC;
  int socket = -1;
  while ((socket = ::accept4(listener_->Number(), nullptr, nullptr, kFlags)) >= 0) {
    clients_.emplace_back(socket);
    ++connections_;
  }
}

// This and what it calls: false where the connection is over.
bool ScriptedServer::Serve(Client& client) {
  if (!Receive(client)) return false;
  if (!client.target) TakeRequest(client);
  if (client.target && !client.answer && !Held(*client.target)) {
    client.answer = TakeAnswer(*client.target);
    client.sent = 0;
  }
  return !client.answer || Send(client);
}

void ScriptedServer::TakeRequest(Client& client) {
  constexpr std::string_view kEnd = "\r\n\r\n";
  const std::size_t end = client.received.find(kEnd);
  if (end == std::string::npos) return;
  heads_.push_back(client.received.substr(0, end + kEnd.size()));
  client.received.erase(0, end + kEnd.size());
  client.target = TargetOf(heads_.back());
  changed_.notify_all();
}

bool ScriptedServer::Receive(Client& client) {
  std::array<char, 16384> buffer{};
  while (true) {
    const ssize_t count = ::recv(client.socket.Number(), buffer.data(), buffer.size(), 0);
    if (count < 0) return errno == EAGAIN || errno == EINTR;
    if (count == 0) return false;
    client.received.append(buffer.data(), static_cast<std::size_t>(count));
  }
}

bool ScriptedServer::Send(Client& client) {
  const std::string_view unsent = std::string_view(client.answer->bytes).substr(client.sent);
  if (!unsent.empty()) {
    const ssize_t count =
        ::send(client.socket.Number(), unsent.data(), unsent.size(), MSG_NOSIGNAL);
    if (count < 0) return errno == EAGAIN || errno == EINTR;
    client.sent += static_cast<std::size_t>(count);
  }
  return client.sent < client.answer->bytes.size() || Finish(client);
}

bool ScriptedServer::Finish(Client& client) {
  const linger hard{.l_onoff = 1, .l_linger = 0};
  switch (client.answer->then) {
    case Then::KeepAlive:
      client.answer.reset();
      client.target.reset();
      return true;
    case Then::Reset:
      ::setsockopt(client.socket.Number(), SOL_SOCKET, SO_LINGER, &hard, sizeof hard);
      return false;
    case Then::Repeat:
      client.answer->bytes = client.answer->chunk;
      client.sent = 0;
      return true;
    case Then::Hold:
      return true;
    case Then::Close:
      break;
  }
  return false;
}

}  // namespace tallyo::test
