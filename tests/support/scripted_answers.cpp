#include "tests/support/scripted_answers.h"

#include <utility>

namespace tallyo::test {

RawAnswer Written(const Reply& reply) {
  const bool hasBody = reply.status != 204 && reply.status != 304;
  std::string bytes = "HTTP/1.1 " + std::to_string(reply.status) + " Scripted\r\n";
  for (const std::string& header : reply.headers) bytes += header + "\r\n";
  if (hasBody) bytes += "Content-Length: " + std::to_string(reply.body.size()) + "\r\n";
  bytes += "\r\n";
  if (hasBody) bytes += reply.body;
  return {.bytes = std::move(bytes)};
}

void ScriptedAnswers::Always(std::string_view prefix, RawAnswer answer) {
  entries_[std::string(prefix)].always = std::move(answer);
}

void ScriptedAnswers::Once(std::string_view prefix, RawAnswer answer) {
  entries_[std::string(prefix)].once.push_back(std::move(answer));
}

RawAnswer ScriptedAnswers::Take(std::string_view target) {
  Entry* best = nullptr;
  for (auto& [prefix, entry] : entries_) {  // in order, so that a longer match comes later
    if (target.starts_with(prefix) && (entry.always || !entry.once.empty())) best = &entry;
  }
  if (best == nullptr) return Written({.status = 404, .body = "404 Not Found"});
  if (best->once.empty()) return *best->always;
  RawAnswer answer = std::move(best->once.front());
  best->once.pop_front();
  return answer;
}

}  // namespace tallyo::test
