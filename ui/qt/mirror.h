#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <vector>

#include "app/program.h"
#include "form/control.h"

namespace tallyo {

// The way between the program's controls and their widgets. Changes of controls are noted and shown
// in one pass when the window's events run, however many they were; events of widgets are handed to
// the program, and end the application's event loops once the program has ended.
class Mirror : public QObject {
 public:
  // The program outlives the mirror.
  explicit Mirror(Program& program) : program_(program) {}
  ~Mirror() override;
  Mirror(const Mirror&) = delete;
  Mirror& operator=(const Mirror&) = delete;

  // Runs after every pass.
  std::function<void()> OnShown;

  // Shows the control in the next pass, and in a pass after each of its changes. Each control is
  // followed once; `show` must work for as long as the mirror lives.
  void Follow(Control& control, std::function<void()> show);

  // Hands one event of a widget to the program; a pass follows, since the widget may have moved.
  void Send(const std::function<void()>& event);

  // Hands over an event that no widget knows of: a pass follows only where a control has changed.
  void SendTick(const std::function<void()>& event);

  // Shows what has changed, now.
  void ShowChanges();

  // Whether a pass runs: what widgets report meanwhile is not the person's doing.
  [[nodiscard]] bool Showing() const { return showing_; }

  [[nodiscard]] Program& Of() const { return program_; }
  [[nodiscard]] MainForm& Form() const { return program_.form; }

 protected:
  void customEvent(QEvent* event) override;

 private:
  struct Followed {
    Control* control;
    std::function<void()> show;
    bool changed = false;
  };

  void Note(Followed& followed);
  void Queue();

  Program& program_;
  std::vector<std::unique_ptr<Followed>> followed_;
  std::vector<Followed*> changed_;
  bool queued_ = false;
  bool showing_ = false;
};

}  // namespace tallyo
