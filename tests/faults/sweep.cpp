#include "tests/faults/sweep.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <exception>
#include <iostream>
#include <tuple>

#include "tests/faults/operations.h"

namespace tallyo::test {
namespace {

using Lasting = FaultPlan::Lasting;
using testing::AllOf;
using testing::AnyOf;
using testing::Eq;
using testing::Ge;
using testing::IsEmpty;
using testing::Le;

constexpr int kMostCalls = 1000;

template <typename Texts>
std::string TextOf(const Texts& texts, const std::string& name) {
  return texts.contains(name) ? texts.at(name) : "(none)";
}

std::int64_t HitsAt(const KeptData& data, const std::string& file, const std::string& hour) {
  return data.hours.contains(file) && data.hours.at(file).contains(hour)
             ? data.hours.at(file).at(hour)
             : 0;
}

// Everything is as before or as wanted: each export and setting by itself, the counters and the
// links as a whole. Hours of daily files have never shrunk, and grown by no more than the growth
// counted twice.
void ExpectOldOrNew(const Outcome& outcome, bool linksMayBeGone) {
  const auto& [before, wanted, now, boxes] = outcome;
  EXPECT_EQ(now.damage, "");
  EXPECT_EQ(now.LostSince(before), "");
  for (const auto& [file, byHour] : now.hours) {
    for (const auto& [hour, hits] : byHour) {
      EXPECT_LE(hits, 2 * HitsAt(wanted, file, hour) - HitsAt(before, file, hour)) << file << hour;
    }
  }
  const std::string exported = "mysite.export";
  EXPECT_THAT(TextOf(now.files, exported),
              AnyOf(TextOf(before.files, exported), TextOf(wanted.files, exported)));
  EXPECT_THAT(now.counters, AnyOf(before.counters, wanted.counters));
  EXPECT_TRUE(now.links == before.links || now.links == wanted.links ||
              (linksMayBeGone && now.links.empty()))
      << testing::PrintToString(now.links);
  for (const auto& [name, text] : now.settings) {
    const std::string old = TextOf(before.settings, name);
    const std::string hoped = TextOf(wanted.settings, name);
    if (name == names::kBytesTransTotal) {
      EXPECT_THAT(std::stod(text), AllOf(Ge(std::stod(old)), Le(std::stod(hoped))));
    } else {
      EXPECT_THAT(text, AnyOf(old, hoped)) << name;
    }
  }
  for (const auto& [name, text] : before.settings) {
    EXPECT_TRUE(now.settings.contains(name)) << name;
  }
}

// One run of one operation on a program of its own.
class Trial {
 public:
  Trial(const Operation& operation, const Fault& fault) : operation_(operation), program_(fault) {
    operation_.prepare(program_);
  }

  [[nodiscard]] KeptData Data() { return program_.Data(); }

  // Whether the fault has struck.
  bool Act(int call, Lasting lasting) {
    if (!operation_.isStart) program_.Start();
    program_.plan.Arm(call, lasting);
    try {
      operation_.act(program_);
    } catch (const std::exception& failure) {
      ADD_FAILURE() << "escaped: " << failure.what();
    }
    program_.plan.Disarm();
    return program_.plan.Struck();
  }

  [[nodiscard]] std::vector<std::string> Boxes() {
    std::vector<std::string> boxes = program_.Boxes().Texts();
    for (std::string& box : boxes) {
      const std::string path = program_.folder.Path();
      for (auto at = box.find(path); at != std::string::npos; at = box.find(path)) {
        box.replace(at, path.size(), "FOLDER");
      }
    }
    return boxes;
  }

  // The same session, then one after a kill, in which the operation is done again if it was not.
  void ExpectGoingOn(const KeptData& before, const KeptData& wanted) {
    // What a start could not read is missing for its whole session.
    if (!operation_.isStart && !program_.P().Ended()) ExpectRefreshed();
    const bool again = Data().links == before.links;
    program_.Start();
    EXPECT_THAT(program_.Boxes().Texts(), IsEmpty());
    if (!operation_.isStart && again) operation_.act(program_);
    if (program_.P().Ended()) program_.Start();
    ExpectRefreshed();
    for (int row = 1; row <= program_.Form().ListView1.RowCount(); ++row) {
      EXPECT_NE(program_.Form().ListView1.Value(row, 1), "") << "row " << row;
    }
    program_.P().Quit();
    const KeptData now = Data();
    if (again) {
      EXPECT_EQ(now.links, wanted.links);
      EXPECT_EQ(now.files.count("mysite.export"), wanted.files.count("mysite.export"));
    }
  }

 private:
  void ExpectRefreshed() {
    const bool hasLinks = program_.Form().Combo1.Count() != 0;
    const auto hoped = hasLinks ? RefreshOutcome::Completed : RefreshOutcome::NoLinks;
    EXPECT_THAT(program_.Refresh(), AnyOf(Eq(hoped), Eq(RefreshOutcome::Completed)));
  }

  const Operation& operation_;
  FaultyProgram program_;
};

// How often a fault hits an operation.
int HitsOf(const Operation& operation, const Fault& fault, const KeptData& before,
           const KeptData& wanted) {
  int hits = 0;
  for (const Lasting lasting : {Lasting::Once, Lasting::FromThenOn}) {
    if (lasting == Lasting::FromThenOn && fault.onlyOnce) break;
    for (int call = 1; call < kMostCalls; ++call) {
      SCOPED_TRACE(operation.name + ", " + fault.name + ", call " + std::to_string(call) +
                   (lasting == Lasting::Once ? "" : " and all later ones"));
      Trial trial(operation, fault);
      if (!trial.Act(call, lasting)) break;
      const Outcome outcome{before, wanted, trial.Data(), trial.Boxes()};
      ExpectOldOrNew(outcome, operation.linksMayBeGone);
      operation.expectBoxes(outcome);
      trial.ExpectGoingOn(before, wanted);
      ++hits;
    }
  }
  return hits;
}

}  // namespace

void Sweep(const std::vector<Fault>& faults, int least, const std::set<std::string>& unhit) {
  for (const Operation& operation : Operations()) {
    Trial faultless(operation, {});
    const KeptData before = faultless.Data();
    faultless.Act(1, Lasting::Once);
    const KeptData wanted = faultless.Data();
    int hits = 0;
    std::cout << operation.name << ':';
    for (const Fault& fault : faults) {
      const int count = HitsOf(operation, fault, before, wanted);
      hits += count;
      std::cout << "  " << fault.name << ' ' << count;
    }
    std::cout << '\n';
    EXPECT_TRUE(hits > least || unhit.contains(operation.name)) << operation.name << ' ' << hits;
  }
}

}  // namespace tallyo::test
