#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <map>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "tests/force/killed_run.h"
#include "tests/support/kept_data.h"
#include "tests/support/scripted_server.h"

namespace tallyo::force {

using test::KeptData;

// Something that must not happen to what Tallyo keeps.
class Loss : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Throws Loss where it does not hold.
inline void Require(bool holds, const std::string& otherwise) {
  if (!holds) throw Loss(otherwise);
}

// Kills Tallyo at random moments of its work, over and over in one AppDir, and looks each time at
// what it has kept. The choices of a round follow from seed and round.
class CrashLoop {
 public:
  CrashLoop(const std::filesystem::path& folder, std::uint64_t seed);

  // One operation, killed, and the sessions that follow it. Throws Loss.
  void Round(std::uint64_t number);

  // What the round does or did, for a person.
  [[nodiscard]] const std::string& Doing() const { return doing_; }
  // How many runs of each operation were killed, and how many came to their end before, as text.
  [[nodiscard]] std::string Figures() const;

 private:
  enum Operation : std::size_t { Refresh, Watch, Window, Export, Import, Add, Remove, kOperations };
  struct Course {  // of an operation: what its longest run took, and how its runs ended
    std::int64_t moments = 0;
    std::int64_t microseconds = 0;
    int killed = 0;
    int finished = 0;
  };

  [[nodiscard]] std::size_t Below(std::size_t limit);
  [[nodiscard]] bool OneIn(std::size_t count) { return Below(count) == 0; }
  [[nodiscard]] Operation ChooseOperation();
  [[nodiscard]] KillPoint ChoosePoint(Operation operation);
  [[nodiscard]] std::vector<std::string> Words(Operation operation);
  [[nodiscard]] std::vector<std::string> Console(const std::vector<std::string>& words) const;

  void Measure(Operation operation);
  KilledRun Kill(Operation operation, const KillPoint& point);
  void VisitLinks();
  void AnswerCounters();
  void MakeRefreshDue(bool due);
  void SetStored(std::string_view name, const std::string& text) const;
  void LeaveWorkFiles();
  void PrepareImport();

  void CheckKilled(Operation operation, const KeptData& before);
  void CheckLinks(Operation operation, const KeptData& before, const KeptData& now) const;
  void CheckExport(const KeptData& before, const KeptData& now) const;
  void CheckHits(const KeptData& kept, bool all) const;
  void CheckImport();
  void Recover(const KeptData& before);
  void MustEndWell(const std::vector<std::string>& words) const;
  [[nodiscard]] KeptData Read(const std::filesystem::path& appDir) const;

  std::uint64_t seed_;
  std::mt19937_64 random_;
  std::filesystem::path appDir_;
  std::filesystem::path importDir_;
  std::filesystem::path scratch_;
  test::ScriptedServer service_;
  std::array<Course, kOperations> courses_{};
  std::string exportHeader_;
  std::map<std::string, std::int64_t> counters_;  // of all links that there were, by reference
  std::string addedLink_;                         // the record that an Add is to make
  std::string reference_;                         // of the link that an Add or Remove is about
  int linksMade_ = 0;
  std::string doing_;
};

}  // namespace tallyo::force
