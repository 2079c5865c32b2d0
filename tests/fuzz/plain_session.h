#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/fuzz/findings.h"
#include "tests/fuzz/plain_links.h"

namespace tallyo::fuzz {

// A session that monitors links, as far as counters go: its start, its refreshes, its end. All of
// it happens on 2026-01-15 from 12:00 on.
class PlainSession {
 public:
  struct Settings {
    std::string interval;     // hours, as typed
    float lastCheckTime = 0;  // seconds since midnight
    bool countOnce = false;
  };

  PlainSession(std::vector<std::string> records, Settings settings)
      : links_(std::move(records)), settings_(std::move(settings)) {}

  std::map<std::string, std::string> files;  // by path

  void Start();
  void Refresh(const std::string& reply, int secondsSinceMidnight);
  void Quit();
  void NoteIn(Findings& findings) const;

  // The clock after so many seconds of the day: "12:00:00".
  [[nodiscard]] static std::string ClockText(int secondsSinceMidnight);

 private:
  struct Row {
    std::string name;
    std::string counter;
    std::string change;
    std::string path;
  };

  // These give false where an error ends what calls them.
  bool Read(std::string reply);
  bool Take(const PlainFields& fields, const std::string& counter, std::string& oldCounter);
  bool Book(const std::string& name, const std::string& counter, const std::string& oldCounter);
  bool Settle(const std::string& name, long value);
  bool ApplySnapshot();

  void LoadSnapshot();
  // False where the name is no file name.
  bool AddHits(const std::string& name, long hits);
  [[nodiscard]] std::string SnapshotText() const;

  PlainLinks links_;
  Settings settings_;
  std::vector<Row> rows_;
  std::string label8_;
  int now_ = 0;
  std::set<std::string> written_;  // to the daily files, since the snapshot was last settled
};

}  // namespace tallyo::fuzz
