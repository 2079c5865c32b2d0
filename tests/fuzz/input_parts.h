#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace tallyo::fuzz {

// One input taken apart: its parts are divided by lines "%%".
class InputParts {
 public:
  InputParts(const std::uint8_t* data, std::size_t size) : rest_(data, data + size) {}

  // The next part; "" where there is none.
  [[nodiscard]] std::string Next() {
    constexpr std::string_view kDivider = "\n%%\n";
    const std::size_t end = rest_.find(kDivider);
    std::string part = rest_.substr(0, end);
    rest_.erase(0, end == std::string::npos ? end : end + kDivider.size());
    return part;
  }

  // All that is left, dividers included.
  [[nodiscard]] std::string Rest() { return std::exchange(rest_, ""); }

 private:
  std::string rest_;
};

}  // namespace tallyo::fuzz
