#include "bench/works/bench_program.h"

#include <stdexcept>

#include "bench/made_links.h"
#include "settings/names.h"
#include "settings/value_text.h"
#include "text/two_digits.h"

namespace tallyo::bench {

void StoreLinks(const std::filesystem::path& appDir, int count) {
  std::filesystem::create_directories(appDir);
  SqliteStore store(appDir / "settings.db", StoreAccess::ReadWrite);
  store.AsOneChange([&] {
    SetSettingValue(store, Hive::LocalMachine, names::SettingsKey, names::kUser, "Bench");
    SetSettingValue(store, Hive::LocalMachine, names::SettingsKey, names::kAccount, "bench");
    for (int i = 1; i <= count; ++i) {
      const std::string number = TwoDigits(i);
      SetSettingValue(store, Hive::LocalMachine, std::string(names::MonitorFilesKey) + number,
                      number, RecordOf(i));
    }
  });
  if (!store.Problem().empty()) {
    throw std::runtime_error(store.Problem());
  }
}

BoxAnswer BenchProgram::NoBoxes::Ask(const MessageBox& box) { throw std::runtime_error(box.text); }

BenchProgram::BenchProgram(const std::filesystem::path& appDir, const std::string& serviceUrl)
    : store_(appDir / "settings.db", StoreAccess::ReadWrite),
      program({.appDir = appDir, .serviceBaseUrl = serviceUrl}, {.clock = clock_,
                                                                 .files = files_,
                                                                 .transfer = transfer_,
                                                                 .store = store_,
                                                                 .pump = pump_,
                                                                 .boxes = boxes_,
                                                                 .shell = shell_}) {}

}  // namespace tallyo::bench
