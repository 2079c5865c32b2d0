#pragma once

#include <functional>
#include <utility>

#include "platform/event_pump.h"

namespace tallyo::test {

// A pump whose pending events are one function, which every run calls. Without one it only counts.
class TestPump : public EventPump {
 public:
  explicit TestPump(std::function<void()> event = {}) : event_(std::move(event)) {}

  [[nodiscard]] int Runs() const { return runs_; }

 protected:
  void RunPending() override {
    ++runs_;
    if (event_) event_();
  }

 private:
  std::function<void()> event_;
  int runs_ = 0;
};

}  // namespace tallyo::test
