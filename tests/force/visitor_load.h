#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <string>
#include <thread>
#include <vector>

namespace tallyo::force {

// Visitors that follow one counting link as fast as they are answered, each on a connection of its
// own, from the object's making until the service has gone or End.
class VisitorLoad {
 public:
  using Time = std::chrono::steady_clock::time_point;

  VisitorLoad(std::uint16_t port, const std::string& reference, std::size_t visitors);
  ~VisitorLoad() { End(); }
  VisitorLoad(const VisitorLoad&) = delete;
  VisitorLoad& operator=(const VisitorLoad&) = delete;

  // Until so many visitors have been led on in all, or the service has gone.
  void WaitForAnswers(std::int64_t count) const;
  void End();

  [[nodiscard]] std::int64_t Answered() const { return answered_; }
  // After End: every request that was sent, answered or not.
  [[nodiscard]] std::int64_t Sent() const { return sent_; }
  // After End: how many had been answered by then.
  [[nodiscard]] std::int64_t AnsweredBy(Time moment) const;
  // After End: when so many had been answered.
  [[nodiscard]] Time AnsweredUpTo(std::int64_t count) const;

 private:
  struct Visitor {
    std::vector<Time> answers;
    std::thread thread;
  };

  void Run(std::uint16_t port, const std::string& request, std::vector<Time>& answers);

  std::vector<Visitor> visitors_;
  std::atomic<std::int64_t> answered_ = 0;
  std::atomic<std::int64_t> sent_ = 0;
  std::atomic<std::size_t> running_ = 0;
  std::atomic<bool> ending_ = false;
};

}  // namespace tallyo::force
