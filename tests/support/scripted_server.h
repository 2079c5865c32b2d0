#pragma once

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <list>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "platform/file_descriptor.h"
#include "tests/support/scripted_answers.h"
#include "tests/support/scripted_connection.h"

namespace tallyo::test {

// A real HTTP server on a free port of 127.0.0.1, with a thread of its own, as long as the object
// lives. It answers by script and keeps every request byte for byte. A prefix is compared with the
// target of the request line as sent ("/Tallyo/accounts/", or "http://" for a proxy); the longest
// one that matches wins, and an unknown target gets 404 and "404 Not Found". Everything may be
// called at any time from any thread.
class ScriptedServer {
 public:
  ScriptedServer();
  ~ScriptedServer();
  ScriptedServer(const ScriptedServer&) = delete;
  ScriptedServer& operator=(const ScriptedServer&) = delete;

  // "http://127.0.0.1:PORT" and the path, which begins with "/".
  [[nodiscard]] std::string Url(std::string_view path = "/") const;
  [[nodiscard]] std::string HostAndPort() const;

  // Status 200 with this body; replaces the standing answer of the prefix.
  void Answer(std::string_view prefix, std::string_view body);
  void AnswerWith(std::string_view prefix, const Reply& reply);
  // Exactly these bytes. Not for Then::Repeat.
  void AnswerRaw(std::string_view prefix, std::string_view bytes, Then then);
  // The head, then the chunk again and again until the client goes.
  void AnswerEndlessly(std::string_view prefix, std::string_view head, std::string_view chunk);

  // The same for one request; several for a prefix are used up in order, before the standing one.
  void AnswerOnce(std::string_view prefix, std::string_view body);
  void AnswerOnceWith(std::string_view prefix, const Reply& reply);
  void AnswerOnceRaw(std::string_view prefix, std::string_view bytes, Then then);

  // Requests whose target begins so are recorded at once but wait for Release() to be answered.
  void Hold(std::string_view prefix);
  void Release();

  // Ends all connections and closes the port before it returns, for good.
  void RefuseConnections();

  // The request lines so far ("GET /x HTTP/1.1"), and the whole heads with their empty lines.
  [[nodiscard]] std::vector<std::string> Requests() const;
  [[nodiscard]] std::vector<std::string> RawRequests() const;
  // How many connections were accepted so far.
  [[nodiscard]] int Connections() const;
  // Waits until so many requests have come; false where that takes more than ten seconds.
  [[nodiscard]] bool WaitForRequests(std::size_t count) const;

 private:
  struct Client {
    explicit Client(int socket) : connection(socket) {}
    ScriptedConnection connection;
    std::optional<std::string> waiting;  // the target of the request to be answered
  };

  void Run();
  void WaitForEvents() const;
  void Wake() const;
  void ClearWake() const;
  void Accept();
  [[nodiscard]] bool Serve(Client& client);
  [[nodiscard]] bool Held(std::string_view target) const;

  FileDescriptor wake_;
  std::optional<FileDescriptor> listener_;  // the thread's own, but for the constructor
  std::list<Client> clients_;               // the thread's own
  std::uint16_t port_ = 0;

  mutable std::mutex mutex_;  // guards all that follows
  mutable std::condition_variable changed_;
  ScriptedAnswers answers_;
  std::vector<std::string> held_;
  std::vector<std::string> heads_;
  int connections_ = 0;
  bool refusing_ = false;
  bool closed_ = false;
  bool stopping_ = false;

  std::thread thread_;
};

}  // namespace tallyo::test
