#pragma once

#include <optional>
#include <string>

#include "platform/file_descriptor.h"
#include "tests/support/scripted_answers.h"

namespace tallyo::test {

// One client of a scripted server. Nothing here waits.
class ScriptedConnection {
 public:
  // Takes over a connected socket that does not block.
  explicit ScriptedConnection(int socket) : socket_(socket) {}

  [[nodiscard]] int Socket() const { return socket_.Number(); }
  [[nodiscard]] bool WantsToSend() const { return answer_ && Unsent(); }

  // Reads what has come; false where the client is gone.
  [[nodiscard]] bool Receive();

  // The head of the next request, once it is complete and the one before is answered.
  [[nodiscard]] std::optional<std::string> TakeRequest();

  void Answer(RawAnswer answer);

  // Sends what the client takes now; false where the connection is over.
  [[nodiscard]] bool Send();

 private:
  [[nodiscard]] bool Unsent() const { return sent_ < answer_->bytes.size(); }
  [[nodiscard]] bool Finish();

  FileDescriptor socket_;
  std::string received_;
  bool asked_ = false;  // a request is taken and not yet answered
  std::optional<RawAnswer> answer_;
  std::size_t sent_ = 0;
};

}  // namespace tallyo::test
