#pragma once

#include <string>
#include <vector>

namespace tallyo::bench {

// The account that the made-up links belong to, as its service gives it; it has a slot left.
inline constexpr const char* kAccountRecord =
    "opn=01/15/2014,max=32767,exp=12/31/2099,ban=no,com=Bench,acc=bench\n";

// The stored record of made-up link i, and the service's line for it.
inline std::string RecordOf(int i) {
  const std::string n = std::to_string(i);
  return "250,Manual " + n + ",manual-" + n + ".pdf,http://files.example/pub/manual-" + n + ".pdf";
}

inline std::string ReplyLineOf(int i, int counter) {
  return "<P>" + std::to_string(counter) + " manual-" + std::to_string(i) + ".pdf\n";
}

inline std::vector<std::string> Records(int count) {
  std::vector<std::string> records;
  for (int i = 1; i <= count; ++i) {
    records.push_back(RecordOf(i));
  }
  return records;
}

inline std::string Reply(int count, int counter) {
  std::string reply;
  for (int i = 1; i <= count; ++i) {
    reply += ReplyLineOf(i, counter);
  }
  return reply;
}

}  // namespace tallyo::bench
