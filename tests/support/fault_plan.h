#pragma once

namespace tallyo::test {

// Which of the calls that can fail do fail. Calls are counted from 1 while it is armed.
class FaultPlan {
 public:
  enum class Lasting { Once, FromThenOn };

  void Arm(int call, Lasting lasting) { *this = FaultPlan(call, lasting); }
  void Disarm() { armed_ = false; }

  // Counts a call. Whether it is to fail.
  [[nodiscard]] bool Strikes() {
    if (!armed_) return false;
    ++calls_;
    const bool strikes = lasting_ == Lasting::Once ? calls_ == call_ : calls_ >= call_;
    struck_ = struck_ || strikes;
    return strikes;
  }

  // Whether any call has failed since it was armed.
  [[nodiscard]] bool Struck() const { return struck_; }

  FaultPlan() = default;

 private:
  FaultPlan(int call, Lasting lasting) : armed_(true), call_(call), lasting_(lasting) {}

  bool armed_ = false;
  bool struck_ = false;
  int call_ = 0;
  int calls_ = 0;
  Lasting lasting_ = Lasting::Once;
};

}  // namespace tallyo::test
