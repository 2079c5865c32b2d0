#pragma once

#include <filesystem>
#include <functional>
#include <initializer_list>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "tests/support/test_program.h"
#include "text/two_digits.h"

namespace tallyo::test {

inline constexpr std::string_view kAccountPath = "/Tallyo/accounts/mysite.txt";
inline constexpr std::string_view kCountersPath =
    "/cgi-bin/Tallyo/devstats.cgi?account=mysite.txt&action=show";
// What GiveAccount lets the service answer where it is not told otherwise.
inline constexpr std::string_view kAccountRecord =
    "opn=01/15/2014,max=10,exp=01/15/2027,ban=no,com=Acme,acc=mysite\n";
inline constexpr const char* kNoFile = "(no file)";

// A test program that monitors links. Link NAME has the reference "NAME.zip" on the service and the
// path "http://h/NAME".
class MonitoredProgram : public TestProgram {
 public:
  void GiveLinks(std::initializer_list<std::string> names) {
    int number = 0;
    for (const std::string& name : names) {
      GiveLink(++number, name);
    }
  }

  // Starts with an account and these links, whose counters are then as given.
  void StartWith(std::initializer_list<std::pair<std::string, std::string>> counters) {
    GiveAccount();
    int number = 0;
    for (const auto& link : counters) {
      GiveLink(++number, link.first);
    }
    Start();
    for (int row = 1; const auto& link : counters) {
      Form().ListView1.SetValue(row++, 1, link.second);
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

  // Of each link its name and these columns, "name|counter|change ", in one text.
  [[nodiscard]] std::string Rows(std::initializer_list<int> columns = {1, 2}) {
    std::string rows;
    for (int row = 1; row <= Form().ListView1.RowCount(); ++row) {
      rows += Form().ListView1.RowText(row);
      for (const int column : columns) {
        rows += "|" + Form().ListView1.Value(row, column);
      }
      rows += " ";
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

  // The file has this content afterwards; kNoFile takes it away.
  void PutFile(std::string_view path, std::string_view text) {
    std::filesystem::remove(folder.Path() / path);
    if (text != kNoFile) {
      WriteFile(path, text);
    }
  }

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

 private:
  void GiveLink(int number, const std::string& name) {
    SetRecord(TwoDigits(number), "1," + name + "," + name + ".zip,http://h/" + name);
  }
};

}  // namespace tallyo::test
