#pragma once

#include <functional>
#include <string>
#include <utility>

namespace tallyo {

using EventHandler = std::function<void()>;

// Where a control stands on its panel, in twips (15 twips are one logical pixel).
struct Place {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  bool operator==(const Place&) const = default;
};

// What all controls of the window share. A control is plain data with handlers: the program sets
// the handlers, a view observes the data and sends the person's events back. Without a view
// everything works the same.
class Control {
 public:
  Control() = default;
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  [[nodiscard]] bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled) { Assign(enabled_, enabled); }

  [[nodiscard]] bool Visible() const { return visible_; }
  void SetVisible(bool visible) { Assign(visible_, visible); }

  [[nodiscard]] const Place& Where() const { return place_; }
  void Put(const Place& place) { Assign(place_, place); }

  // The panel that the control stands on; -1 for a control of the window itself.
  [[nodiscard]] int Screen() const { return screen_; }
  void SetScreen(int screen) { screen_ = screen; }

  // The one view, called after every change of the data. It may be called very often and should
  // only note that there is something to show.
  void Observe(std::function<void()> view) { view_ = std::move(view); }

 protected:
  void Changed() const {
    if (view_) {
      view_();
    }
  }

  // Sets a field and tells the view, unless the field has that value already.
  template <typename Value>
  bool Assign(Value& field, Value value) {
    if (field == value) {
      return false;
    }
    field = std::move(value);
    Changed();
    return true;
  }

  static void Fire(const EventHandler& handler) {
    if (handler) {
      handler();
    }
  }

 private:
  bool enabled_ = true;
  bool visible_ = true;
  Place place_;
  int screen_ = -1;
  std::function<void()> view_;
};

}  // namespace tallyo
