#include "tests/fuzz/plain_daily.h"

#include "tests/fuzz/plain_text.h"

namespace tallyo::fuzz {

std::string PlainDailyFile(std::string_view content, const std::string& key, long increment) {
  std::string result;
  bool matched = false;
  for (const std::string& line : PlainLines(content)) {
    if (PlainMid(line, 1, 4) == key) {
      const double hits = PlainNumber(PlainMid(line, 5)) + static_cast<double>(increment);
      result += key + PlainDecimal(hits).value() + "\r\n";
      matched = true;
    } else {
      result += line + "\r\n";
    }
  }
  return matched ? result : result + key + std::to_string(increment) + "\r\n";
}

}  // namespace tallyo::fuzz
