#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

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

// One answer as it goes out.
struct RawAnswer {
  std::string bytes = {};
  Then then = Then::KeepAlive;
  std::string chunk = {};  // for Repeat
};

[[nodiscard]] RawAnswer Written(const Reply& reply);

// The answers of a server by the beginnings of the targets they are for. The longest beginning
// that still has an answer wins; its answers for once go first.
class ScriptedAnswers {
 public:
  void Always(std::string_view prefix, RawAnswer answer);
  void Once(std::string_view prefix, RawAnswer answer);

  // The answer to one request, which uses up an answer for once; 404 where there is none.
  [[nodiscard]] RawAnswer Take(std::string_view target);

 private:
  struct Entry {
    std::deque<RawAnswer> once;
    std::optional<RawAnswer> always;
  };
  std::map<std::string, Entry, std::less<>> entries_;
};

}  // namespace tallyo::test
