#pragma once

#include <filesystem>
#include <functional>
#include <initializer_list>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/test_program.h"
#include "text/two_digits.h"

namespace tallyo::test {

inline constexpr std::string_view kAccountPath = "/Tallyo/accounts/mysite.txt";
inline constexpr std::string_view kCountersPath =
    "/cgi-bin/Tallyo/devstats.cgi?account=mysite.txt&action=show";
inline constexpr const char* kNoFile = "(no file)";

// A test program that monitors links. Link NAME has the reference "NAME.zip" on the service and the
// path "http://h/NAME".
class MonitoredProgram : public TestProgram {
 public:
  void GiveLinks(std::initializer_list<std::string> names) {
    int number = 0;
    for (const std::string& name : names) {
      SetRecord(TwoDigits(++number), "1," + name + "," + name + ".zip,http://h/" + name);
    }
  }

  // Starts with an account and these links, whose counters are then as given.
  void StartWith(std::initializer_list<std::pair<std::string, std::string>> counters) {
    GiveAccount();
    int number = 0;
    for (const auto& [name, counter] : counters) {
      SetRecord(TwoDigits(++number), "1," + name + "," + name + ".zip,http://h/" + name);
    }
    Start();
    int row = 0;
    for (const auto& [name, counter] : counters) {
      Form().ListView1.SetValue(++row, 1, counter);
    }
  }

  // The outcome, or nothing where the program ended meanwhile.
  std::optional<RefreshOutcome> Refresh() {
    std::optional<RefreshOutcome> outcome;
    P().Dispatch([&] { outcome = P().refresh.RefreshStatistics(); });
    return outcome;
  }
  std::optional<RefreshOutcome> Refresh(std::string_view counters) {
    GiveCounters(counters);
    return Refresh();
  }

  void Tick() {
    P().Dispatch([this] { Form().Timer1.Tick(); });
  }

  // Runs the action once while the program waits for the answer to this request, counted from 1.
  // The paths that are held are answered afterwards.
  void DuringRequest(std::size_t count, std::function<void()> action) {
    Event = [this, count, action = std::move(action), done = false]() mutable {
      if (!done && server.Requests().size() == count) {
        done = true;
        action();
        server.Release();
      }
    };
  }

  // Of each link: name, counter and change.
  [[nodiscard]] std::vector<std::string> Rows() {
    std::vector<std::string> rows;
    for (int row = 1; row <= Form().ListView1.RowCount(); ++row) {
      rows.push_back(Form().ListView1.RowText(row) + "|" + Form().ListView1.Value(row, 1) + "|" +
                     Form().ListView1.Value(row, 2));
    }
    return rows;
  }
  [[nodiscard]] std::string Detail(int row) { return Form().ListView3.Value(row, 1); }

  [[nodiscard]] std::string TextOrNoFile(std::string_view path) {
    return HasFile(path) ? FileText(path) : kNoFile;
  }
  [[nodiscard]] std::string Daily(const std::string& name) {
    return TextOrNoFile("Data/2026/" + name + "-Jan");
  }
  [[nodiscard]] std::string LastRead() { return TextOrNoFile("Data/LastRead.dat"); }

  // Every file and folder under the AppDir but those of the settings store.
  [[nodiscard]] std::set<std::string> Tree() const {
    std::set<std::string> paths;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.Path())) {
      if (!entry.path().filename().string().starts_with("settings.db")) {
        paths.insert(entry.path().lexically_relative(folder.Path()).string());
      }
    }
    return paths;
  }
};

}  // namespace tallyo::test
