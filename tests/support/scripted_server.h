#pragma once

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <list>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "platform/file_descriptor.h"

namespace tallyo::test {

// An answer of proper form; Content-Length is added by itself.
struct Reply {
  int status = 200;
  std::vector<std::string> headers = {};  // "Location: /next", without line ends
  std::string body = {};                  // left out with the statuses 204 and 304
};

// What becomes of a connection once the bytes of an answer are sent.
enum class Then {
  KeepAlive,  // the next request is answered
  Close,
  Reset,   // closed so hard that the client sees an error
  Hold,    // stays open without another byte
  Repeat,  // the chunk is sent over and over until the client goes
};

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
  [[nodiscard]] std::string Url(std::string_view path = "/") const {
    return "http://" + HostAndPort() + std::string(path);
  }
  [[nodiscard]] std::string HostAndPort() const { return "127.0.0.1:" + std::to_string(port_); }

  // Status 200 with this body; replaces the standing answer of the prefix.
  void Answer(std::string_view prefix, std::string_view body) {
    AnswerWith(prefix, {.body = std::string(body)});
  }
  void AnswerWith(std::string_view prefix, const Reply& reply) { Set(prefix, Written(reply)); }
  // Exactly these bytes. Not for Then::Repeat.
  void AnswerRaw(std::string_view prefix, std::string_view bytes, Then then) {
    Set(prefix, {.bytes = std::string(bytes), .then = then});
  }
  // The head, then the chunk again and again until the client goes.
  void AnswerEndlessly(std::string_view prefix, std::string_view head, std::string_view chunk);
  // Status 200 for one request; several for a prefix are used up in order, before the standing one.
  void AnswerOnce(std::string_view prefix, std::string_view body);

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
  struct RawAnswer {
    std::string bytes = {};
    Then then = Then::KeepAlive;
    std::string chunk = {};  // for Repeat
  };
  struct Answers {
    std::deque<RawAnswer> once;
    std::optional<RawAnswer> always;
  };
  struct Client {
    explicit Client(int number) : socket(number) {}
    FileDescriptor socket;
    std::string received;
    std::optional<std::string> target;  // of a request that is not answered to its end
    std::optional<RawAnswer> answer;
    std::size_t sent = 0;
  };

  [[nodiscard]] static RawAnswer Written(const Reply& reply);
  void Set(std::string_view prefix, RawAnswer answer);
  [[nodiscard]] RawAnswer TakeAnswer(std::string_view target);
  [[nodiscard]] bool Held(std::string_view target) const;
  void Wake() const;

  // What the thread does; none of it waits but WaitForEvents.
  void Run();
  void WaitForEvents() const;
  void Accept();
  [[nodiscard]] bool Serve(Client& client);
  void TakeRequest(Client& client);
  [[nodiscard]] static bool Receive(Client& client);
  [[nodiscard]] static bool Send(Client& client);
  [[nodiscard]] static bool Finish(Client& client);

  FileDescriptor wake_;
  std::optional<FileDescriptor> listener_;  // the thread's own, but for the constructor
  std::list<Client> clients_;               // the thread's own
  std::uint16_t port_ = 0;

  mutable std::mutex mutex_;  // guards all that follows
  mutable std::condition_variable changed_;
  std::map<std::string, Answers, std::less<>> answers_;
  std::vector<std::string> held_;
  std::vector<std::string> heads_;
  int connections_ = 0;
  bool refusing_ = false;
  bool closed_ = false;
  bool stopping_ = false;

  std::thread thread_;
};

}  // namespace tallyo::test
