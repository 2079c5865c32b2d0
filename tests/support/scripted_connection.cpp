#include "tests/support/scripted_connection.h"

#include <sys/socket.h>

#include <array>
#include <cerrno>
#include <utility>

namespace tallyo::test {

bool ScriptedConnection::Receive() {
  std::array<char, 16384> buffer{};
  while (true) {
    const ssize_t count = ::recv(Socket(), buffer.data(), buffer.size(), 0);
    if (count < 0) return errno == EAGAIN || errno == EINTR;
    if (count == 0) return false;
    received_.append(buffer.data(), static_cast<std::size_t>(count));
  }
}

std::optional<std::string> ScriptedConnection::TakeRequest() {
  constexpr std::string_view kEnd = "\r\n\r\n";
  const std::size_t end = received_.find(kEnd);
  if (asked_ || end == std::string::npos) return std::nullopt;
  std::string head = received_.substr(0, end + kEnd.size());
  received_.erase(0, head.size());
  asked_ = true;
  return head;
}

void ScriptedConnection::Answer(RawAnswer answer) {
  answer_ = std::move(answer);
  sent_ = 0;
}

bool ScriptedConnection::Send() {
  if (!answer_) return true;
  if (Unsent()) {
    const ssize_t count = ::send(Socket(), answer_->bytes.data() + sent_,
                                 answer_->bytes.size() - sent_, MSG_NOSIGNAL);
    if (count < 0) return errno == EAGAIN || errno == EINTR;
    sent_ += static_cast<std::size_t>(count);
  }
  return Unsent() || Finish();
}

bool ScriptedConnection::Finish() {
  switch (answer_->then) {
    case Then::KeepAlive:
      answer_.reset();
      asked_ = false;
      return true;
    case Then::Close:
      return false;
    case Then::Reset: {
      const linger hard{.l_onoff = 1, .l_linger = 0};
      ::setsockopt(Socket(), SOL_SOCKET, SO_LINGER, &hard, sizeof hard);
      return false;
    }
    case Then::Hold:
      return true;
    case Then::Repeat:
      answer_->bytes = answer_->chunk;
      sent_ = 0;
      return true;
  }
  return false;
}

}  // namespace tallyo::test
