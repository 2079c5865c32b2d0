#pragma once

namespace tallyo {

// Thrown through everything that still waits once the program has ended, so that nothing of it
// resumes. It is no failure and nobody but the program's outermost frame catches it.
class ProgramEnded {};

// Lets the events that wait for the window (or the terminal's signals) run. End() is how the
// program stops: whatever pumps events afterwards, or comes back from a message box, unwinds.
class EventPump {
 public:
  virtual ~EventPump() = default;

  // Runs the events that are pending, without waiting. Throws ProgramEnded once the program ended,
  // also when one of these events ended it.
  void Run() {
    RunPending();
    ThrowIfEnded();
  }

  void End() { ended_ = true; }
  [[nodiscard]] bool Ended() const { return ended_; }
  void ThrowIfEnded() const {
    if (ended_) {
      throw ProgramEnded();
    }
  }

 protected:
  virtual void RunPending() = 0;

 private:
  bool ended_ = false;
};

}  // namespace tallyo
