#pragma once

#include <string_view>

namespace tallyo {

// Walks through the service's reply to a statistics request: records of anything without a blank,
// "<P>", a counter, one blank, the link's reference and a line feed. The reply must outlive the
// walk.
class StatisticsReply {
 public:
  enum class Step {
    Record,     // Counter() and Reference() hold the next record
    End,        // the reply is used up, or holds no further record
    Malformed,  // the rest is not in the format
  };

  explicit StatisticsReply(std::string_view text) : rest_(text) {}

  [[nodiscard]] Step Next();
  [[nodiscard]] std::string_view Counter() const { return counter_; }
  [[nodiscard]] std::string_view Reference() const { return reference_; }

 private:
  std::string_view rest_;
  std::string_view counter_;
  std::string_view reference_;
};

}  // namespace tallyo
