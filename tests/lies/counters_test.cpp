#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/lies/answers.h"
#include "tests/support/monitored_program.h"

namespace tallyo::test {
namespace {

using namespace std::string_literals;

constexpr float kNoon = 43200;
constexpr std::size_t kMostBodyBytes = 16UL * 1024 * 1024;
constexpr const char* kBefore = "A|10| B|7| ";
constexpr const char* kGood = "A|15|5 B|9|2 ";
constexpr const char* kSnapshot = "A=10,B=7,\r\n";
constexpr std::string_view kAccountQuery = "accounts/mysite.txt";
constexpr std::string_view kCountersQuery = "devstats.cgi?account=mysite.txt&action=show";

const std::string body = "<P>15 A.zip\n<P>9 B.zip\n";
const std::string gzipped =
    "\x1f\x8b\x08\x00\x00\x00\x00\x00\x02\x03"
    "\xb3\x09\xb0\x33\x34\x55\x70\xd4\xab\xca\x2c\xe0\xb2\x09\xb0\xb3\x54\x70\x02\x33"
    "\x01\x28\xe9\x3e\xb2\x17\x00\x00\x00"s;

// What a service answers for the counters, and what must come of it.
struct Lie {
  const char* name;
  std::string bytes;
  Then then = Then::KeepAlive;
  RefreshOutcome outcome = RefreshOutcome::NotReached;
  std::string rows = kBefore;
  std::size_t bodyBytes = 0;  // counted as traffic, where the service is reached
  std::string chunk = {};     // sent behind the bytes for good
  bool settles = true;        // false: a counter is no number, at which settling the snapshot ends
};

std::vector<Lie> BrokenConnections() {
  return {{"reset before the status line", "", Then::Reset},
          {"closed before the status line", "", Then::Close},
          {"reset inside the headers", ok + "Content-Len", Then::Reset},
          {"reset inside the body", ok + "Content-Length: 23\r\n\r\n<P>15 A.zip\n", Then::Reset},
          {"closed inside the body", ok + "Content-Length: 24\r\n\r\n" + body, Then::Close},
          {"endless headers", ok, Then::Repeat, RefreshOutcome::NotReached, kBefore, 0,
           "X-More: " + Many(1000, "x") + "\r\n"},
          {"an endless body", ok + "\r\n", Then::Repeat, RefreshOutcome::NotReached, kBefore, 0,
           Many(10000, "<P>1 x\n")},
          {"endless chunks", chunked, Then::Repeat, RefreshOutcome::NotReached, kBefore, 0,
           "1000\r\n" + Many(0x1000, "x") + "\r\n"},
          {"a flood of 1xx", "", Then::Repeat, RefreshOutcome::NotReached, kBefore, 0,
           Many(100, "HTTP/1.1 100 Continue\r\n\r\n")}};
}

std::vector<Lie> WrongFrames() {
  const auto completed = RefreshOutcome::Completed;
  return {{"a length that is too short", ok + "Content-Length: 12\r\n\r\n" + body, Then::KeepAlive,
           completed, "A|15|5 B|7| ", 12},
          {"no length", ok + "\r\n" + body, Then::Close, completed, kGood, body.size()},
          {"two lengths, of which the last counts",
           ok + "Content-Length: 12\r\nContent-Length: 23\r\n\r\n" + body, Then::Close, completed,
           kGood, body.size()},
          {"a negative length", ok + "Content-Length: -5\r\n\r\n" + body, Then::Close},
          {"a length past 64 bits", ok + "Content-Length: 99999999999999999999\r\n\r\n" + body,
           Then::Close},
          {"a length past the cap", ok + "Content-Length: 16777217\r\n\r\n" + body, Then::Hold},
          {"a bad chunk size", chunked + "zz\r\n" + body + "\r\n0\r\n\r\n", Then::Close},
          {"no last chunk", chunked + "17\r\n" + body + "\r\n", Then::Close},
          {"trailers", chunked + "17\r\n" + body + "\r\n0\r\nX: y\r\n\r\n", Then::KeepAlive,
           completed, kGood, body.size()},
          {"16 MiB", Whole(body + std::string(kMostBodyBytes - body.size(), 'x')), Then::KeepAlive,
           completed, kGood, kMostBodyBytes},
          {"16 MiB and a byte", ok + "\r\n" + std::string(kMostBodyBytes + 1, 'x'), Then::Close},
          {"line feeds alone", "HTTP/1.1 200 OK\nContent-Length: 23\n\n" + body, Then::KeepAlive,
           completed, kGood, body.size()}};
}

std::vector<Lie> WrongHeads() {
  const auto completed = RefreshOutcome::Completed;
  const auto good = [&](const char* name, const std::string& head) {
    return Lie{name, Whole(body, head), Then::KeepAlive, completed, kGood, body.size()};
  };
  return {{"no status line", "HELO there\r\n\r\n" + body, Then::Close},
          {"HTTP/0.9", body, Then::Close},
          {"a NUL in a header", Whole(body, ok + "X: a\0b\r\n"s), Then::Close},
          good("a status line of 64 KiB", "HTTP/1.1 200 " + Many(65536, "k") + "\r\n"),
          good("the status 404", "HTTP/1.1 404 Not Found\r\n"),
          good("a redirect", "HTTP/1.1 302 Found\r\nLocation: /elsewhere\r\n"),
          good("gzip that is none", ok + "Content-Encoding: gzip\r\n"),
          good("control bytes in a header", ok + "X: \x1b[2J\x07\xff\r\n"),
          {"gzip that nobody asked for", Whole(gzipped, ok + "Content-Encoding: gzip\r\n"),
           Then::KeepAlive, completed, kBefore, gzipped.size()},
          {"the status 204", "HTTP/1.1 204 None\r\n\r\n", Then::KeepAlive, completed},
          {"the status 304", "HTTP/1.1 304 Old\r\n\r\n", Then::KeepAlive, completed}};
}

std::vector<Lie> WrongBodies() {
  const auto row = [](const char* name, const std::string& text, const std::string& rows = kBefore,
                      RefreshOutcome outcome = RefreshOutcome::Completed) {
    return Lie{name, Whole(text), Then::KeepAlive, outcome, rows, text.size()};
  };
  const auto noNumber = [&](const char* name, const std::string& text, const std::string& rows) {
    Lie lie = row(name, text, rows);
    lie.settles = false;
    return lie;
  };
  const auto stopped = RefreshOutcome::Stopped;
  const std::string digits(100000, '9');
  return {
      row("nothing", ""),
      row("<P> and a blank", "<P> "),
      row("no line feed", "<P>15 A.zip\n<P>9 B.zip", "A|15|5 B|7| ", stopped),
      row("a page", "<html> <P>15 A.zip\n</html>", kBefore, stopped),
      noNumber("a NUL in a counter", "<P>1\0005 A.zip\n"s, "A|1\0005|-9 B|7| "s),
      row("a NUL in a reference", "<P>15 A.zip\0\n"s),
      row("a negative counter", "<P>-5 A.zip\n", "A|-5|-15 B|7| "),
      row("growth past 16 bits", "<P>40000 A.zip\n<P>9 B.zip\n", "A|40000|39990 B|7| ", stopped),
      row("a counter of 100,000 digits", "<P>" + digits + " A.zip\n",
          "A|" + digits + "|179769313486232" + std::string(294, '0') + " B|7| ", stopped),
      noNumber("control bytes", "<P>\x1b[31m15 A.zip\n", "A|\x1b[31m15|-10 B|7| "),
      noNumber("bytes that are no UTF-8", "<P>\xff\xfe A.zip\n", "A|\xff\xfe|-10 B|7| "),
      row("a million records", Many(1000000, "<P>1 x\n") + body, kGood)};
}

class LyingService : public testing::Test {
 protected:
  // A program whose refresh is due, with a snapshot to settle.
  static void Begin(MonitoredProgram& t) {
    t.countOnce = true;
    t.StartWith({{"A", "10"}, {"B", "7"}});
    t.PutFile("Data/LastRead.dat", kSnapshot);
    t.P().state.LastCheckTime = kNoon - 7200;
  }

  static void Tell(MonitoredProgram& t, const Lie& lie) {
    if (lie.chunk.empty()) {
      t.server.AnswerRaw(kCountersPath, lie.bytes, lie.then);
    } else {
      t.server.AnswerEndlessly(kCountersPath, lie.bytes, lie.chunk);
    }
  }

  static void ExpectNothingElse(MonitoredProgram& t, const Lie& lie) {
    const bool reached = lie.outcome != RefreshOutcome::NotReached;
    const bool completed = lie.outcome == RefreshOutcome::Completed;
    EXPECT_EQ(t.Rows(), lie.rows);
    EXPECT_EQ(t.LastRead(), completed && lie.settles ? kNoFile : kSnapshot);
    EXPECT_EQ(t.P().state.LastCheckTime, completed ? kNoon : kNoon - 7200);
    EXPECT_EQ(t.Daily("A"), lie.rows.starts_with("A|15|5") ? "15125\r\n" : kNoFile);
    EXPECT_EQ(t.Daily("B"), lie.rows == kGood ? "15122\r\n" : kNoFile);
    EXPECT_EQ(t.Setting(names::kBytesTransTotal),
              std::to_string(kAccountQuery.size() + kAccountRecord.size() +
                             (reached ? kCountersQuery.size() + lie.bodyBytes : 0)));
    // A connection that was kept and is lost without an answer is tried once more.
    const auto requests = t.server.Requests();
    EXPECT_LE(requests.size(), lie.bytes.size() < ok.size() ? 3U : 2U);
    for (std::size_t i = 1; i < requests.size(); ++i) {
      EXPECT_EQ(requests[i], "GET " + std::string(kCountersPath) + " HTTP/1.1");
    }
    EXPECT_THAT(t.Boxes().Texts(), testing::IsEmpty());
  }

  // The next good answer is taken as if nothing had happened.
  static void ExpectHeld(const std::vector<Lie>& lies) {
    for (const Lie& lie : lies) {
      SCOPED_TRACE(lie.name);
      MonitoredProgram t;
      Begin(t);
      Tell(t, lie);
      EXPECT_EQ(t.Refresh(), lie.outcome);
      ExpectNothingElse(t, lie);
      t.GiveCounters("<P>20 A.zip\n<P>12 B.zip\n");
      // Back from a counter that is too high, the change does not fit either.
      if (lie.outcome == RefreshOutcome::Stopped) t.Refresh();
      EXPECT_EQ(t.Refresh(), RefreshOutcome::Completed);
      EXPECT_EQ(t.Rows({1}), "A|20 B|12 ");
    }
  }
};

TEST_F(LyingService, ChangesNothingByBreakingOff) { ExpectHeld(BrokenConnections()); }
TEST_F(LyingService, ChangesOnlyWhatFitsItsFrame) { ExpectHeld(WrongFrames()); }
TEST_F(LyingService, ChangesOnlyWhatStandsInTheBody) { ExpectHeld(WrongHeads()); }
TEST_F(LyingService, ChangesOnlyWhatItsRecordsSay) { ExpectHeld(WrongBodies()); }

// A byte now and then would take for ever; a person who quits waits no longer.
TEST(SlowService, IsGivenUpInTheMiddle) {
  for (const std::string& begun : {"HTT"s, ok + "Cont", ok + "Content-Length: 23\r\n\r\n<P>1"}) {
    MonitoredProgram t;
    t.StartWith({{"A", "10"}, {"B", "7"}});
    t.server.AnswerRaw(kCountersPath, begun, Then::Hold);
    t.DuringRequest(2, [&] { t.P().requests.CancelTransfers(); });
    EXPECT_EQ(t.Refresh(), RefreshOutcome::NotReached);
    EXPECT_EQ(t.Rows(), kBefore);
    EXPECT_EQ(t.Refresh(body), RefreshOutcome::Completed);
    EXPECT_EQ(t.Rows(), kGood);
  }
}

}  // namespace
}  // namespace tallyo::test
