#pragma once

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "tests/service/raw_client.h"

namespace tallyo::force {

// Visitors that follow one counting link as fast as they are answered, each on a connection of its
// own, from the object's making until the service has gone or End.
class VisitorLoad {
 public:
  using Time = std::chrono::steady_clock::time_point;

  VisitorLoad(std::uint16_t port, const std::string& reference, std::size_t visitors)
      : running_(visitors) {
    for (std::size_t i = 0; i < visitors; ++i) {
      visitors_.emplace_back([this, port, reference] {
        Visit(port, reference);
        --running_;
      });
    }
  }

  ~VisitorLoad() { End(); }
  VisitorLoad(const VisitorLoad&) = delete;
  VisitorLoad& operator=(const VisitorLoad&) = delete;

  // Until so many visitors have been led on in all, or the service has gone.
  void WaitForAnswers(std::int64_t count) const {
    while (Answered() < count && running_ > 0) std::this_thread::yield();
  }
  void End() {
    ending_ = true;
    for (std::thread& visitor : visitors_) {
      if (visitor.joinable()) visitor.join();
    }
  }

  [[nodiscard]] std::int64_t Answered() const { return answered_; }
  // After End: every request that was sent, answered or not.
  [[nodiscard]] std::int64_t Sent() const { return sent_; }
  // After End: how many had been answered by then.
  [[nodiscard]] std::int64_t AnsweredBy(Time moment) const {
    return std::ranges::upper_bound(answers_, moment) - answers_.begin();
  }
  // After End: when so many had been answered.
  [[nodiscard]] Time AnsweredUpTo(std::int64_t count) const {
    const std::size_t place = std::min(static_cast<std::size_t>(count), answers_.size());
    return place == 0 ? Time() : answers_[place - 1];
  }

 private:
  void Visit(std::uint16_t port, const std::string& reference) {
    const service::RawConnection connection(port);
    while (!ending_ && connection.IsOpen()) {
      ++sent_;
      connection.Send("GET /cgi-bin/Tallyo/tallyo.cgi?acc=acme&flnk=" + reference +
                      " HTTP/1.1\r\nHost: localhost\r\n\r\n");
      if (!connection.ReadHead().starts_with("HTTP/1.1 302")) return;
      const std::lock_guard lock(mutex_);
      answers_.push_back(std::chrono::steady_clock::now());
      ++answered_;
    }
  }

  std::mutex mutex_;
  std::vector<Time> answers_;
  std::atomic<std::int64_t> answered_ = 0;
  std::atomic<std::int64_t> sent_ = 0;
  std::atomic<std::size_t> running_;
  std::atomic<bool> ending_ = false;
  std::vector<std::thread> visitors_;
};

}  // namespace tallyo::force
