#include "tests/force/visitor_load.h"

#include <algorithm>

#include "tests/service/raw_client.h"

namespace tallyo::force {

VisitorLoad::VisitorLoad(std::uint16_t port, const std::string& reference, std::size_t visitors)
    : visitors_(visitors), running_(visitors) {
  const std::string request = "GET /cgi-bin/Tallyo/tallyo.cgi?acc=acme&flnk=" + reference +
                              " HTTP/1.1\r\nHost: localhost\r\n\r\n";
  for (Visitor& visitor : visitors_) {
    visitor.thread = std::thread([this, port, request, &visitor] {
      Run(port, request, visitor.answers);
      --running_;
    });
  }
}

void VisitorLoad::Run(std::uint16_t port, const std::string& request, std::vector<Time>& answers) {
  const service::RawConnection connection(port);
  while (!ending_ && connection.IsOpen()) {
    ++sent_;
    connection.Send(request);
    if (!connection.ReadHead().starts_with("HTTP/1.1 302")) return;
    answers.push_back(std::chrono::steady_clock::now());
    ++answered_;
  }
}

void VisitorLoad::WaitForAnswers(std::int64_t count) const {
  while (answered_ < count && running_ > 0) std::this_thread::yield();
}

void VisitorLoad::End() {
  ending_ = true;
  for (Visitor& visitor : visitors_) {
    if (visitor.thread.joinable()) visitor.thread.join();
  }
}

std::int64_t VisitorLoad::AnsweredBy(Time moment) const {
  std::int64_t count = 0;
  for (const Visitor& visitor : visitors_) {
    count += std::ranges::upper_bound(visitor.answers, moment) - visitor.answers.begin();
  }
  return count;
}

VisitorLoad::Time VisitorLoad::AnsweredUpTo(std::int64_t count) const {
  std::vector<Time> all;
  for (const Visitor& visitor : visitors_) {
    all.insert(all.end(), visitor.answers.begin(), visitor.answers.end());
  }
  std::ranges::sort(all);
  const std::size_t place = std::min(static_cast<std::size_t>(count), all.size());
  return place == 0 ? Time() : all[place - 1];
}

}  // namespace tallyo::force
