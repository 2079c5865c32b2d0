#include "stats/statistics_reply.h"

#include <string>

#include "tests/fuzz/findings.h"
#include "tests/fuzz/plain_text.h"

namespace tallyo::fuzz {
namespace {

// The last fact is how the reply ends.
Findings ReadPlainly(std::string rest) {
  Findings plain;
  while (const std::size_t blank = PlainPosition(rest, " ")) {
    std::string token = PlainMid(rest, 1, blank - 1);
    rest = PlainMid(rest, blank + 1);
    const std::size_t mark = PlainPosition(token, "<P>");
    token = PlainMid(token, mark + 3);
    if (mark != 0 && token.empty()) {
      break;
    }
    const std::size_t lineFeed = PlainPosition(rest, "\n");
    if (mark == 0 || lineFeed == 0) {
      plain.emplace_back("malformed", "");
      return plain;
    }
    plain.emplace_back(token, PlainMid(rest, 1, lineFeed - 1));
    rest = PlainMid(rest, lineFeed + 1);
  }
  plain.emplace_back("end", "");
  return plain;
}

Findings Read(std::string_view text) {
  Findings program;
  StatisticsReply reply(text);
  auto step = reply.Next();
  for (; step == StatisticsReply::Step::Record; step = reply.Next()) {
    program.emplace_back(reply.Counter(), reply.Reference());
  }
  program.emplace_back(step == StatisticsReply::Step::End ? "end" : "malformed", "");
  return program;
}

}  // namespace
}  // namespace tallyo::fuzz

// The service's reply to a request for the counters.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  const std::string text(data, data + size);
  tallyo::fuzz::RequireSame(tallyo::fuzz::Read(text), tallyo::fuzz::ReadPlainly(text));
  return 0;
}
