#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tallyo {

// What an hour of a daily file is to hold. Other than an addition it can be carried out again.
struct HourTotal {
  std::string file;  // under Data: "2026/Manual-Nov"
  std::string key;   // "ddhh"
  double hits = 0;

  bool operator==(const HourTotal&) const = default;
};

// "ddhhHITS FILE", without a line end, and back; nothing where the line is no such text.
[[nodiscard]] std::string LineOf(const HourTotal& total);
[[nodiscard]] std::optional<HourTotal> HourTotalOf(std::string_view line);

}  // namespace tallyo
