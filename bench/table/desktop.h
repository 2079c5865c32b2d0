#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "bench/table/child_process.h"
#include "bench/table/place.h"

namespace tallyo::bench {

// A display of its own for windows, which nobody sees.
class Desktop {
 public:
  explicit Desktop(const Place& place);

  // The command as it opens its window here, with the probe in it (window_probe.cpp).
  [[nodiscard]] Command OnIt(const Place& place, std::vector<std::string> words) const;

 private:
  ChildProcess server_;
  std::string display_;
};

// A program that shows a window.
class ShownWindow {
 public:
  ShownWindow(const Place& place, const Desktop& desktop, std::vector<std::string> words);

  // Waits for the first painting; the seconds from the start of the process to its end.
  [[nodiscard]] double SecondsToPaint();

  // Chooses the menu item of this object name, where the window has one.
  void Choose(const std::string& action) { process_.Say(action); }

  [[nodiscard]] pid_t Number() const { return process_.Number(); }

 private:
  double begin_;
  ChildProcess process_;
};

}  // namespace tallyo::bench
