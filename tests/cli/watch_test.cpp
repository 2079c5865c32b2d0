#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pthread.h>

#include <csignal>
#include <thread>

#include "tests/cli/console_runner.h"

namespace tallyo::test {
namespace {

using ::testing::HasSubstr;

class Watch : public ::testing::Test {
 protected:
  ConsoleRunner c;
};

TEST_F(Watch, EndsWhenItsTimeIsOver) {
  c.MonitorLinks({"a"});
  c.GiveCounters("<P>4 a.zip\n");
  EXPECT_EQ(c.Run({"watch", "--for", "0.1"}), 0);
  EXPECT_THAT(c.out, HasSubstr("12:00:00\nName"));
  EXPECT_EQ(c.File("Data/LastRead.dat"), "a=4,\r\n");
}

TEST_F(Watch, SaysOnceWhyTheAccountKeepsItFromRefreshing) {
  c.MonitorLinks({"a"});
  c.server.Answer("/Tallyo/accounts/mysite.txt",
                  "max=10,exp=01/15/2027,ban=yes,com=Acme,acc=mysite\n");
  std::thread killer([&, target = pthread_self(), before = c.server.Requests().size()] {
    if (c.server.WaitForRequests(before + 3)) {
      pthread_kill(target, SIGTERM);
    }
  });
  EXPECT_EQ(c.Run({"watch"}), 0);
  killer.join();
  EXPECT_EQ(c.err,
            "[information] Tallyo: This account is banned. All access is forbiden\n"
            "tallyo-cli: the account is suspended\n");
  EXPECT_EQ(c.out, "");
}

}  // namespace
}  // namespace tallyo::test
