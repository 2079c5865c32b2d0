#include "service/store_thread.h"

#include <utility>

namespace tallyo::service {

StoreThread::StoreThread(std::function<void()> round, std::chrono::milliseconds pause)
    : round_(std::move(round)), pause_(pause), thread_([this] { Run(); }) {}

StoreThread::~StoreThread() { End(); }

bool StoreThread::Give(std::function<void()> job) {
  const std::lock_guard lock(mutex_);
  if (closed_) return false;
  jobs_.push_back(std::move(job));
  changed_.notify_all();
  return true;
}

void StoreThread::CloseJobs() {
  std::unique_lock lock(mutex_);
  closed_ = true;
  changed_.wait(lock, [this] { return jobs_.empty() && !working_; });
}

void StoreThread::End() {
  if (!thread_.joinable()) return;
  CloseJobs();
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
    changed_.notify_all();
  }
  thread_.join();
}

void StoreThread::Run() {
  auto nextRound = std::chrono::steady_clock::now() + pause_;
  std::unique_lock lock(mutex_);
  while (!ending_) {
    changed_.wait_until(lock, nextRound, [this] { return ending_ || !jobs_.empty(); });
    const bool roundIsDue = std::chrono::steady_clock::now() >= nextRound;
    working_ = true;
    const std::deque<std::function<void()>> jobs = std::exchange(jobs_, {});
    lock.unlock();
    for (const auto& job : jobs) job();
    if (roundIsDue) {
      round_();
      nextRound = std::chrono::steady_clock::now() + pause_;
    }
    lock.lock();
    working_ = false;
    changed_.notify_all();
  }
}

}  // namespace tallyo::service
