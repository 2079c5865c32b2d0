#include "stats/hour_total.h"

#include "platform/files.h"
#include "text/decimal_text.h"
#include "text/leading_number.h"

namespace tallyo {
namespace {

constexpr std::size_t kKeyLength = 4;

}  // namespace

std::string LineOf(const HourTotal& total) {
  return total.key + DecimalText(total.hits) + " " + total.file;
}

std::optional<HourTotal> HourTotalOf(std::string_view line) {
  const std::size_t blank = line.find(' ');
  const std::size_t slash = line.find('/');
  if (blank == std::string_view::npos || slash == std::string_view::npos || blank <= kKeyLength ||
      slash < blank || !IsFileName(line.substr(blank + 1, slash - blank - 1)) ||
      !IsFileName(line.substr(slash + 1))) {
    return std::nullopt;
  }
  return HourTotal{.file = std::string(line.substr(blank + 1)),
                   .key = std::string(line.substr(0, kKeyLength)),
                   .hits = LeadingNumber(line.substr(kKeyLength, blank - kKeyLength))};
}

}  // namespace tallyo
