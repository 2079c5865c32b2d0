#pragma once

#include <optional>
#include <string>

namespace tallyo::bench {

// One line of the table.
struct Line {
  int number = 0;
  std::string work;  // with the unit of its figures
  std::optional<double> ours = {};
  std::optional<double> floor = {};
  std::optional<double> goal = {};  // for the ratio
  bool smaller = true;              // whether a smaller ratio is better
  std::string failure = {};         // why there are no figures

  [[nodiscard]] std::optional<double> Ratio() const {
    return ours && floor ? std::optional(*ours / *floor) : std::nullopt;
  }

  // A line without a goal cannot miss it.
  [[nodiscard]] bool Reached() const {
    if (!failure.empty()) {
      return false;
    }
    return !goal || (smaller ? *Ratio() <= *goal : *Ratio() >= *goal);
  }
};

}  // namespace tallyo::bench
