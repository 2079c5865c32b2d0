#include "tests/faults/sweep.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <exception>
#include <fstream>
#include <iostream>
#include <numeric>

#include "settings/names.h"
#include "settings/value_text.h"
#include "tests/support/temp_folder.h"

namespace tallyo::test {
namespace {

namespace fs = std::filesystem;
using Lasting = FaultPlan::Lasting;
using testing::AnyOf;
using testing::Eq;

constexpr int kMostCalls = 1000;

void AnswerAll(ScriptedServer& server) {
  server.Answer("/Tallyo/accounts/mysite.txt",
                "opn=01/15/2014,max=10,exp=01/15/2027,ban=no,com=Acme,acc=mysite\n");
  server.Answer("/cgi-bin/Tallyo/devstats.cgi?account=mysite.txt&action=show",
                "<P>15 A.zip\n<P>9 B.zip\n<P>4 C.zip\n<P>1 D.zip\n<P>2 E.zip\n<P>3 F.zip\n");
  server.Answer("/cgi-bin/Tallyo/devstats.cgi?account=mysitef.txt", "<P>ok\n");
}

void MakeFolder(const fs::path& folder) {
  SqliteStore store(folder / "settings.db", StoreAccess::ReadWrite);
  const auto set = [&](std::string_view key, std::string_view name, std::string_view text) {
    SetSettingValue(store, Hive::LocalMachine, key, name, text);
  };
  set(names::SettingsKey, names::kUser, "Acme");
  set(names::SettingsKey, names::kAccount, "mysite");
  set(names::SettingsKey, names::kBytesTransTotal, "1000");
  set(names::SettingsKey, names::kDefUrl, "http://former/");
  for (const std::string number : {"01", "02", "03"}) {
    const std::string name(1, static_cast<char>('A' + number[1] - '1'));
    set(std::string(names::MonitorFilesKey) + number, number,
        "1," + name + "," + name + ".zip,http://h/" + name);
  }
  fs::create_directories(folder / "Data/2026");
  std::ofstream(folder / "Data/LastRead.dat") << "A=10,B=7,C=1,\r\n";
  std::ofstream(folder / "Data/2026/A-Jan") << "151203\r\n141107\r\n";
  std::ofstream(folder / "Data/2026/B-Jan") << "151105\r\n";
}

// One run of one operation in a folder of its own.
class Trial {
 public:
  Trial(const Operation& operation, const fs::path& model, ScriptedServer& server)
      : operation_(operation), server_(server) {
    fs::copy(model, folder_.Path(), fs::copy_options::recursive);
    operation_.prepare(folder_.Path());
  }

  // Whether the fault has struck.
  bool Act(const Fault& fault, int call, Lasting lasting) {
    program_.emplace(folder_.Path(), server_, fault);
    if (!operation_.isStart) program_->Start();
    program_->plan.Arm(call, lasting);
    try {
      operation_.act(*program_);
    } catch (const std::exception& failure) {
      ADD_FAILURE() << "escaped: " << failure.what();
    }
    program_->plan.Disarm();
    return program_->plan.Struck();
  }

  [[nodiscard]] KeptData Data() {
    SqliteStore store(folder_.Path() / "settings.db", StoreAccess::ReadWrite);
    return ReadKeptData(folder_.Path(), store);
  }

  void ExpectRightBoxes(const KeptData& now, const KeptData& before, const KeptData& after) {
    std::vector<std::string> boxes = program_->Boxes().Texts();
    for (std::string& box : boxes) {
      const std::string path = folder_.Path().string();
      for (auto at = box.find(path); at != std::string::npos; at = box.find(path)) {
        box.replace(at, path.size(), "FOLDER");
      }
    }
    operation_.expectBoxes(boxes, now, before, after);
  }

  // The same session, then one after a kill, in which the operation is done again if it was not.
  void ExpectGoingOn(const KeptData& before, const KeptData& after) {
    // What a start could not read is missing for its whole session.
    if (!operation_.isStart && !program_->P().Ended()) ExpectRefreshed(*program_);
    program_.reset();
    const bool again = Data().links == before.links;
    program_.emplace(folder_.Path(), server_, Fault{});
    program_->Start();
    EXPECT_THAT(program_->Boxes().Texts(), testing::IsEmpty());
    if (!operation_.isStart && again) operation_.act(*program_);
    if (program_->P().Ended()) program_->Start();
    ExpectRefreshed(*program_);
    for (int row = 1; row <= program_->Form().ListView1.RowCount(); ++row) {
      EXPECT_NE(program_->Form().ListView1.Value(row, 1), "") << "row " << row;
    }
    program_->P().Quit();
    program_.reset();
    const KeptData now = Data();
    if (again) {
      EXPECT_EQ(now.links, after.links);
      EXPECT_EQ(now.files.count("mysite.export"), after.files.count("mysite.export"));
    }
  }

 private:
  static void ExpectRefreshed(FaultyProgram& program) {
    const auto hoped =
        program.Form().Combo1.Count() == 0 ? RefreshOutcome::NoLinks : RefreshOutcome::Completed;
    EXPECT_THAT(program.Refresh(), AnyOf(Eq(hoped), Eq(RefreshOutcome::Completed)));
  }

  const Operation& operation_;
  ScriptedServer& server_;
  TempFolder folder_;
  std::optional<FaultyProgram> program_;
};

// Everything that a sweep of one operation needs again and again.
struct Course {
  const Operation& operation;
  const fs::path& model;
  ScriptedServer& server;
  KeptData before;
  KeptData after;
};

Course MakeCourse(const Operation& operation, const fs::path& model, ScriptedServer& server) {
  Trial trial(operation, model, server);
  Course course{operation, model, server, trial.Data(), {}};
  trial.Act({}, 1, Lasting::Once);
  course.after = trial.Data();
  return course;
}

// Whether the fault has struck.
bool Try(const Course& course, const Fault& fault, int call, Lasting lasting) {
  Trial trial(course.operation, course.model, course.server);
  if (!trial.Act(fault, call, lasting)) return false;
  const KeptData now = trial.Data();
  ExpectOldOrNew(now, course.before, course.after, course.operation.linksMayBeGone);
  trial.ExpectRightBoxes(now, course.before, course.after);
  trial.ExpectGoingOn(course.before, course.after);
  return true;
}

int HitsOf(const Course& course, const Fault& fault) {
  int hits = 0;
  for (const Lasting lasting : {Lasting::Once, Lasting::FromThenOn}) {
    if (lasting == Lasting::FromThenOn && fault.onlyOnce) break;
    for (int call = 1; call < kMostCalls; ++call) {
      SCOPED_TRACE(course.operation.name + ", " + fault.name + ", call " + std::to_string(call) +
                   (lasting == Lasting::Once ? "" : " and all later ones"));
      if (!Try(course, fault, call, lasting)) break;
      ++hits;
    }
  }
  return hits;
}

}  // namespace

int Sum(const Hits& hits) {
  return std::accumulate(hits.begin(), hits.end(), 0,
                         [](int sum, const auto& operation) { return sum + operation.second; });
}

void Sweep(const std::vector<Fault>& faults, Hits& hits) {
  ScriptedServer server;
  AnswerAll(server);
  const TempFolder model;
  MakeFolder(model.Path());
  for (const Operation& operation : Operations()) {
    const Course course = MakeCourse(operation, model.Path(), server);
    std::cout << operation.name << ':';
    for (const Fault& fault : faults) {
      const int count = HitsOf(course, fault);
      hits[operation.name] += count;
      std::cout << "  " << fault.name << ' ' << count;
    }
    std::cout << '\n';
  }
}

}  // namespace tallyo::test
