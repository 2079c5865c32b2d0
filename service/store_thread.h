#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace tallyo::service {

// The one thread that uses the database while the service runs. It does the jobs it is given, in
// order, and its round (storing hits) over and over in between.
class StoreThread {
 public:
  // Jobs and rounds must not throw.
  StoreThread(std::function<void()> round, std::chrono::milliseconds pause);
  ~StoreThread();
  StoreThread(const StoreThread&) = delete;
  StoreThread& operator=(const StoreThread&) = delete;

  // Any thread may give a job; false once the jobs have been closed.
  [[nodiscard]] bool Give(std::function<void()> job);
  // Takes no more jobs and returns when all that were taken are done.
  void CloseJobs();
  // Closes the jobs and ends the thread.
  void End();

 private:
  void Run();

  const std::function<void()> round_;
  const std::chrono::milliseconds pause_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<std::function<void()>> jobs_;
  bool working_ = false;
  bool closed_ = false;
  bool ending_ = false;
  std::thread thread_;  // the last member: it uses all the others
};

}  // namespace tallyo::service
