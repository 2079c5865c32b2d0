#include "stats/statistics_reply.h"

namespace tallyo {

StatisticsReply::Step StatisticsReply::Next() {
  constexpr std::string_view kMark = "<P>";
  const std::size_t blank = rest_.find(' ');
  if (blank == std::string_view::npos) {
    return Step::End;
  }
  const std::string_view token = rest_.substr(0, blank);
  const std::size_t mark = token.find(kMark);
  if (mark == std::string_view::npos) {
    return Step::Malformed;
  }
  counter_ = token.substr(mark + kMark.size());
  if (counter_.empty()) {
    return Step::End;
  }
  rest_.remove_prefix(blank + 1);
  const std::size_t lineFeed = rest_.find('\n');
  if (lineFeed == std::string_view::npos) {
    return Step::Malformed;
  }
  reference_ = rest_.substr(0, lineFeed);
  rest_.remove_prefix(lineFeed + 1);
  return Step::Record;
}

}  // namespace tallyo
