// COUNT settings, written one by one as the program writes them. Usage: settings-work APPDIR COUNT

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>

#include "bench/made_settings.h"
#include "bench/rounds.h"
#include "settings/settings.h"
#include "settings/sqlite_store.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "Usage: settings-work APPDIR COUNT\n";
    return 2;
  }
  std::filesystem::create_directories(argv[1]);
  tallyo::SqliteStore store(std::filesystem::path(argv[1]) / "settings.db",
                            tallyo::StoreAccess::ReadWrite);
  tallyo::Settings settings(store);
  long written = 0;
  tallyo::bench::ServeRounds([&, count = std::atoi(argv[2])] {
    for (int i = 0; i < count; ++i) {
      settings.Set(tallyo::bench::kWrittenSettings[static_cast<std::size_t>(i) % 4],
                   std::to_string(++written));
    }
  });
  if (!store.Problem().empty() ||
      settings.Get(tallyo::bench::kWrittenSettings[0]).empty() != (written == 0)) {
    std::cerr << "settings-work: nothing was stored\n";
    return 1;
  }
}
