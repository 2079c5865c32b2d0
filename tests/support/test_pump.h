#pragma once

#include <functional>
#include <utility>

#include "platform/event_pump.h"

namespace tallyo::test {

// A pump whose pending events are one function, which every run calls.
class TestPump : public EventPump {
 public:
  explicit TestPump(std::function<void()> event = {}) : event_(std::move(event)) {}

 protected:
  void RunPending() override {
    if (event_) event_();
  }

 private:
  std::function<void()> event_;
};

}  // namespace tallyo::test
