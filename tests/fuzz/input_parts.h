#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tallyo::fuzz {

// One input taken apart: its parts are divided by lines "%%".
class InputParts {
 public:
  InputParts(const std::uint8_t* data, std::size_t size) : text_(data, data + size), rest_(text_) {}
  InputParts(const InputParts&) = delete;
  InputParts& operator=(const InputParts&) = delete;

  // The next part; "" where there is none.
  [[nodiscard]] std::string Next() {
    const std::size_t end = rest_.find(kDivider);
    const std::string part(rest_.substr(0, end));
    rest_ =
        end == std::string_view::npos ? std::string_view() : rest_.substr(end + kDivider.size());
    return part;
  }

  // All that is left, dividers included.
  [[nodiscard]] std::string Rest() {
    const std::string part(rest_);
    rest_ = {};
    return part;
  }

  [[nodiscard]] bool UsedUp() const { return rest_.empty(); }

 private:
  static constexpr std::string_view kDivider = "\n%%\n";
  std::string text_;
  std::string_view rest_;
};

}  // namespace tallyo::fuzz
