#include "bench/table/desktop.h"

#include <chrono>

#include "bench/table/worker.h"

namespace tallyo::bench {
namespace {

constexpr std::chrono::seconds kPatience{30};

double MonotonicSeconds() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

}  // namespace

Desktop::Desktop(const Place& place)
    : server_(Start(place, {.words = {"Xvfb", "-displayfd", "1", "-screen", "0", "1280x1024x24",
                                      "-nolisten", "tcp"}})),
      display_(":" + server_.HearLine(kPatience)) {}

// Nothing of the person's own desktop has a part in it.
Command Desktop::OnIt(const Place& place, std::vector<std::string> words) const {
  const std::filesystem::path runtime = place.folder / "runtime";
  std::filesystem::create_directories(runtime);
  std::filesystem::permissions(runtime, std::filesystem::perms::owner_all);
  return {.words = std::move(words),
          .environment = {{"DISPLAY", display_},
                          {"QT_QPA_PLATFORM", "xcb"},
                          {"QT_QPA_PLATFORMTHEME", ""},
                          {"QT_STYLE_OVERRIDE", ""},
                          {"DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent"},
                          {"XDG_RUNTIME_DIR", runtime},
                          {"XDG_CURRENT_DESKTOP", ""},
                          {"HOME", place.folder},
                          {"QT_PLUGIN_PATH", place.floors},
                          {"QT_QPA_GENERIC_PLUGINS", "windowprobe"}}};
}

ShownWindow::ShownWindow(const Place& place, const Desktop& desktop, std::vector<std::string> words)
    : begin_(MonotonicSeconds()), process_(Start(place, desktop.OnIt(place, std::move(words)))) {}

double ShownWindow::SecondsToPaint() { return std::stod(process_.HearLine(kPatience)) - begin_; }

}  // namespace tallyo::bench
