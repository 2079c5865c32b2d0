#include "stats/statistics_reply.h"

#include <string>

#include "tests/fuzz/findings.h"
#include "tests/fuzz/plain_text.h"

namespace tallyo::fuzz {
namespace {

void ReadPlainly(std::string rest, Findings& plain) {
  for (;;) {
    const std::size_t blank = PlainPosition(rest, " ");
    if (blank == 0) {
      return plain.Note("end", "");
    }
    std::string token = PlainMid(rest, 1, blank - 1);
    rest = PlainMid(rest, blank + 1);
    const std::size_t mark = PlainPosition(token, "<P>");
    if (mark == 0) {
      return plain.Note("malformed", "");
    }
    token = PlainMid(token, mark + 3);
    if (token.empty()) {
      return plain.Note("end", "");
    }
    const std::size_t lineFeed = PlainPosition(rest, "\n");
    if (lineFeed == 0) {
      return plain.Note("malformed", "");
    }
    plain.Note("counter", token);
    plain.Note("reference", PlainMid(rest, 1, lineFeed - 1));
    rest = PlainMid(rest, lineFeed + 1);
  }
}

void Read(std::string_view text, Findings& program) {
  StatisticsReply reply(text);
  for (;;) {
    switch (reply.Next()) {
      case StatisticsReply::Step::End:
        return program.Note("end", "");
      case StatisticsReply::Step::Malformed:
        return program.Note("malformed", "");
      case StatisticsReply::Step::Record:
        program.Note("counter", reply.Counter());
        program.Note("reference", reply.Reference());
    }
  }
}

}  // namespace
}  // namespace tallyo::fuzz

// The service's reply to a request for the counters.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  using namespace tallyo::fuzz;
  const std::string text(data, data + size);
  Findings program;
  Findings plain;
  Read(text, program);
  ReadPlainly(text, plain);
  RequireSame(program, plain);
  return 0;
}
