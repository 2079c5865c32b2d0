#include "stats/statistics_reply.h"

#include <gtest/gtest.h>

#include <string>

namespace tallyo {
namespace {

// The records as "counter=reference;" and how the walk ended.
std::string Walk(std::string_view text) {
  StatisticsReply reply(text);
  std::string walk;
  while (true) {
    switch (reply.Next()) {
      case StatisticsReply::Step::End:
        return walk + "end";
      case StatisticsReply::Step::Malformed:
        return walk + "malformed";
      case StatisticsReply::Step::Record:
        walk += std::string(reply.Counter()) + "=" + std::string(reply.Reference()) + ";";
    }
  }
}

TEST(StatisticsReply, IsReadRecordByRecordUpToItsEnd) {
  const struct {
    const char* text;
    const char* walk;
  } rows[] = {
      {"", "end"},
      {"OK", "end"},
      {"OK\n", "end"},
      {"<P>5", "end"},
      {"<P>15 a\n<P>7 b\n", "15=a;7=b;end"},
      {"<P>5 my file\n", "5=my file;end"},
      {"<P>5  a\n", "5= a;end"},
      {"<P>5 \n<P>6 b\n", "5=;6=b;end"},
      {"<P>5 a\r\n<P>6 b\n", "5=a\r;6=b;end"},
      {"<html><P>5 a\n\n<br><P>6 b\n", "5=a;6=b;end"},
      {"<P>x<P>5 a\n", "x<P>5=a;end"},
      {"<P>5 a\n<P> b\n<P>6 c\n", "5=a;end"},
      {"<P>5 a\n<P>6", "5=a;end"},
      {"<P>5 a", "malformed"},
      {"<P>5 a\n<P>6 b", "5=a;malformed"},
      {" <P>5 a\n", "malformed"},
      {"Not Found here <P>5 a\n", "malformed"},
      {"<p>5 a\n", "malformed"},
      {"<P>5 a\nbye and thanks\n", "5=a;malformed"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Walk(row.text), row.walk) << row.text;
  }
}

}  // namespace
}  // namespace tallyo
