#include <gtest/gtest.h>
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "tests/force/checked_rows.h"
#include "tests/force/running_service.h"
#include "tests/force/visitor_load.h"
#include "tests/service/raw_client.h"
#include "tests/support/temp_folder.h"

namespace tallyo::force {
namespace {

constexpr std::size_t kVisitors = 16;
constexpr const char* kVisit = "/cgi-bin/Tallyo/tallyo.cgi?acc=acme&flnk=r";

class ServiceUnderForce : public testing::Test {
 protected:
  ServiceUnderForce() { EXPECT_EQ(service_.Add("r", "http://x/r"), "<P>ok\n"); }

  std::int64_t Stored() { return StoredCounts(service_.Database()).at("r"); }

  test::TempFolder folder_;
  RunningService service_{folder_.Path() / "hits.db"};
};

TEST_F(ServiceUnderForce, LosesAtMostTheLastSecondWhenItIsKilledAndCountsNothingTwice) {
  using std::chrono::milliseconds;
  using std::chrono::steady_clock;
  // The second that hits may wait in memory, and what one write takes where others use the disk.
  constexpr milliseconds kMostLost{4000};
  for (int round = 0; round < 2; ++round) {
    const std::int64_t before = Stored();
    VisitorLoad load(service_.Port(), "r", 4);
    // So that most of it is from before what may be lost.
    const auto end = steady_clock::now() + kMostLost + milliseconds{1500};
    while (steady_clock::now() < end) load.WaitForAnswers(load.Answered() + 100);
    const auto killed = steady_clock::now();
    EXPECT_EQ(service_.End(SIGKILL).signal, SIGKILL);
    load.End();
    const std::int64_t stored = Stored() - before;
    EXPECT_GT(load.AnsweredBy(killed - kMostLost), 0);
    EXPECT_GE(stored, load.AnsweredBy(killed - kMostLost));
    EXPECT_LE(stored, load.Sent());
    service_.Start();
    EXPECT_EQ(service_.Counters().at("r"), before + stored);
    const auto lost = std::chrono::duration_cast<milliseconds>(killed - load.AnsweredUpTo(stored));
    std::cout << load.Answered() << " answered, " << stored << " stored: the last "
              << std::max<std::int64_t>(lost.count(), 0) << " ms are lost\n";
  }
}

TEST_F(ServiceUnderForce, LosesNothingWhenItIsAskedToEnd) {
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    const std::int64_t before = Stored();
    VisitorLoad load(service_.Port(), "r", kVisitors);
    load.WaitForAnswers(2000);
    EXPECT_EQ(service_.End(signal).Complaint(), "");
    load.End();
    const std::int64_t stored = Stored() - before;
    EXPECT_GE(load.Answered(), 2000);
    EXPECT_GE(stored, load.Answered());
    EXPECT_LE(stored, load.Sent());
    service_.Start();
  }
}

TEST_F(ServiceUnderForce, AnswersBesideIdleConnectionsAndSlowSenders) {
  constexpr std::size_t kIdle = 1000;
  constexpr std::size_t kSlow = 50;
  rlimit files{};
  getrlimit(RLIMIT_NOFILE, &files);
  files.rlim_cur = std::min<rlim_t>(files.rlim_max, 4096);
  setrlimit(RLIMIT_NOFILE, &files);
  using Connections = std::vector<std::unique_ptr<service::RawConnection>>;
  Connections idle;
  Connections slow;
  for (std::size_t i = 0; i < kIdle + kSlow; ++i) {
    Connections& kind = i < kIdle ? idle : slow;
    kind.push_back(std::make_unique<service::RawConnection>(service_.Port()));
    ASSERT_TRUE(kind.back()->IsOpen());
  }
  const std::string request =
      "GET " + std::string(kVisit) + " HTTP/1.1\r\nHost: x\r\nConnection: close\r\n\r\n";
  for (const char byte : request) {
    for (const auto& sender : slow) sender->Send({&byte, 1});
    ASSERT_TRUE(service_.Visit("r"));
  }
  for (const auto& sender : slow) {
    EXPECT_EQ(service::ReplyOf(sender->ReadToTheEnd()).status, 302);
  }
  EXPECT_EQ(service_.Counters().at("r"), static_cast<std::int64_t>(request.size() + kSlow));
  EXPECT_EQ(service_.End(SIGTERM).Complaint(), "");
}

TEST(ServiceFromElsewhere, IsNotManagedFromAnAddressThatIsNotAllowed) {
  const test::TempFolder folder;
  RunningService service(folder.Path() / "hits.db");
  ASSERT_EQ(service.Add("r", "http://x/r"), "<P>ok\n");
  EXPECT_EQ(service.End(SIGTERM).Complaint(), "");
  service.Start({"--manage-from", "192.0.2.0/24"});
  service.Remove("r");
  EXPECT_EQ(service::Ask(service.Port(), "http://192.0.2.1/Tallyo/accounts/acme.txt").status, 403);
  EXPECT_TRUE(service.Visit("r"));
  EXPECT_EQ(service.End(SIGTERM).Complaint(), "");
  EXPECT_EQ(StoredCounts(service.Database()), (std::map<std::string, std::int64_t>{{"r", 1}}));
}

}  // namespace
}  // namespace tallyo::force
