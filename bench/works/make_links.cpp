// Makes an AppDir with COUNT links, their counters of the last session and no refresh due today.
// Usage: make-links COUNT APPDIR

#include <algorithm>
#include <fstream>
#include <iostream>
#include <string>

#include "bench/works/bench_program.h"
#include "settings/names.h"
#include "settings/value_text.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "Usage: make-links COUNT APPDIR\n";
    return 2;
  }
  using namespace tallyo;
  const int count = std::stoi(argv[1]);
  const std::filesystem::path appDir = argv[2];
  bench::StoreLinks(appDir, count);
  SqliteStore store(appDir / "settings.db", StoreAccess::ReadWrite);
  const LocalTime now = SystemClock().Now();
  const int lately = std::max(1, static_cast<int>(now.secondsSinceMidnight) - 60);
  const auto set = [&](std::string_view name, const std::string& text) {
    SetSettingValue(store, Hive::LocalMachine, names::SettingsKey, name, text);
  };
  set(names::kPrevCheck, MonthDayYear(now.date) + " " + std::to_string(lately));
  set(names::kUpdDefTime, "24");
  std::filesystem::create_directories(appDir / "Data");
  std::ofstream counters(appDir / "Data" / "LastRead.dat");
  for (int i = 1; i <= count; ++i) {
    counters << "Manual " << i << "=" << 1 + i % 1000 << ',';
  }
  counters << "\r\n";
}
