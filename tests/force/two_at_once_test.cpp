#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "settings/names.h"
#include "settings/sqlite_store.h"
#include "settings/value_text.h"
#include "tests/force/running_service.h"
#include "tests/support/temp_folder.h"

namespace tallyo::force {
namespace {

using testing::HasSubstr;

// An AppDir with one monitored link, "Manual", that three visitors have followed.
class TwoAtOnce : public testing::Test {
 protected:
  TwoAtOnce() {
    EXPECT_EQ(Console({"account", "save", "Acme", "acme"}).Complaint(), "");
    EXPECT_EQ(
        Console({"links", "add", "http://x/m", "--name", "Manual", "--reference", "m"}).Complaint(),
        "");
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(service_.Visit("m"));
  }

  std::vector<std::string> Words(const std::string& program,
                                 const std::vector<std::string>& words) const {
    std::vector<std::string> all{ProgramFile(program), "--app-dir", appDir_, "--service-url",
                                 service_.Url()};
    all.insert(all.end(), words.begin(), words.end());
    return all;
  }
  Ending Console(const std::vector<std::string>& words) {
    return RunToEnd(Words("tallyo-cli", words));
  }

  // Starts a program that refreshes by itself, and waits until it has.
  std::unique_ptr<ChildProcess> StartRefreshing(const std::string& program,
                                                const std::vector<std::string>& words) {
    auto process = std::make_unique<ChildProcess>(Words(program, words));
    while (process->Runs() && !std::filesystem::exists(appDir_ / "Data" / "LastRead.now")) {
      std::this_thread::yield();
    }
    return process;
  }

  void ExpectReadingOnly() {
    for (const std::vector<std::string>& words : {std::vector<std::string>{"refresh"},
                                                  {"links", "add", "http://x/n", "--name", "New"},
                                                  {"links", "remove", "Manual"},
                                                  {"account", "save", "Acme", "acme"},
                                                  {"config", "export"},
                                                  {"settings", "set", "UpdDefTime", "9"}}) {
      const Ending refused = Console(words);
      EXPECT_EQ(refused.exitStatus, 1) << words.front();
      EXPECT_THAT(refused.err, HasSubstr("Tallyo is running")) << words.front();
    }
    const Ending read = Console({"--json", "status"});
    EXPECT_EQ(read.Complaint(), "");
    EXPECT_THAT(read.out, HasSubstr("\"counter\": \"3\""));
    EXPECT_EQ(Console({"daily", "Manual"}).Complaint(), "");
    EXPECT_EQ(service_.Counters(), (std::map<std::string, std::int64_t>{{"m", 3}}));
  }

  test::TempFolder folder_;
  const std::filesystem::path appDir_ = folder_.Path() / "app";
  RunningService service_{folder_.Path() / "hits.db"};
};

TEST_F(TwoAtOnce, BesideAWindowAConsoleOnlyReads) {
  if (!IsBuilt("tallyo")) GTEST_SKIP() << "the window is not built";
  const auto window = StartRefreshing("tallyo", {});
  ExpectReadingOnly();
  const Ending second = RunToEnd(Words("tallyo", {}));
  EXPECT_EQ(second.exitStatus, 0) << second.err;
  window->Signal(SIGTERM);
  EXPECT_EQ(window->Wait().exitStatus, 0);
  EXPECT_EQ(Console({"refresh"}).Complaint(), "");
}

TEST_F(TwoAtOnce, BesideAWatchAConsoleOnlyReadsAndAKilledOneKeepsNobodyOut) {
  const auto watch = StartRefreshing("tallyo-cli", {"watch"});
  ExpectReadingOnly();
  watch->Signal(SIGKILL);
  EXPECT_EQ(watch->Wait().signal, SIGKILL);
  EXPECT_EQ(Console({"refresh"}).Complaint(), "");
}

TEST_F(TwoAtOnce, OfConsolesThatChangeEachIsDoneOrRefusedAsAWhole) {
  constexpr int kConsoles = 12;
  std::vector<std::unique_ptr<ChildProcess>> consoles;
  for (int i = 0; i < kConsoles; ++i) {
    const std::string number = std::to_string(i);
    consoles.push_back(std::make_unique<ChildProcess>(
        Words("tallyo-cli", {"links", "add", "http://x/" + number, "--name", "L" + number})));
  }
  std::size_t done = 0;
  for (int i = 0; i < kConsoles; ++i) {
    const Ending ending = consoles[static_cast<std::size_t>(i)]->Wait();
    const std::string number = std::to_string(i);
    EXPECT_FALSE(HoldsReport(ending.err)) << ending.err;
    EXPECT_EQ(service_.Counters().contains(number), ending.exitStatus == 0);
    EXPECT_EQ(Console({"counting-link", "L" + number}).exitStatus, ending.exitStatus);
    done += ending.exitStatus == 0 ? 1 : 0;
    EXPECT_EQ(ending.err.find("Tallyo is running") == std::string::npos, ending.exitStatus == 0);
  }
  EXPECT_GE(done, 1U);
  EXPECT_EQ(service_.Counters().size(), done + 1);
}

TEST(TwoWriters, OfOneStoreLoseNothing) {
  constexpr int kWrites = 10'000;
  constexpr std::string_view kShared = "Shared";
  const test::TempFolder folder;
  const std::filesystem::path file = folder.Path() / "settings.db";
  const auto nameOf = [](int writer, int i) {
    return std::to_string(writer) + "-" + std::to_string(i % 100);
  };
  const auto write = [&](int writer) {
    SqliteStore store(file, StoreAccess::ReadWrite);
    const auto set = [&store](std::string_view name, int number) {
      SetSettingValue(store, Hive::LocalMachine, names::SettingsKey, name, std::to_string(number));
    };
    for (int i = 0; i < kWrites; ++i) {
      store.AsOneChange([&] {
        const std::string text =
            QuerySettingValue(store, Hive::LocalMachine, names::SettingsKey, kShared);
        set(kShared, text.empty() ? 1 : std::stoi(text) + 1);
        set(nameOf(writer, i), i);
      });
    }
    return store.Problem().empty() ? 0 : 1;
  };
  std::vector<pid_t> writers;
  for (int writer = 0; writer < 2; ++writer) {
    writers.push_back(::fork());
    if (writers.back() == 0) ::_exit(write(writer));
  }
  for (const pid_t writer : writers) {
    int status = 0;
    ::waitpid(writer, &status, 0);
    EXPECT_EQ(status, 0);
  }
  SqliteStore store(file, StoreAccess::ReadOnly);
  const auto textOf = [&store](std::string_view name) {
    return QuerySettingValue(store, Hive::LocalMachine, names::SettingsKey, name);
  };
  EXPECT_EQ(textOf(kShared), std::to_string(2 * kWrites));
  for (int i = kWrites - 100; i < kWrites; ++i) {
    EXPECT_EQ(textOf(nameOf(0, i)), std::to_string(i));
    EXPECT_EQ(textOf(nameOf(1, i)), std::to_string(i));
  }
}

}  // namespace
}  // namespace tallyo::force
