#pragma once

#include <QLocalServer>
#include <filesystem>
#include <functional>

namespace tallyo {

// How a second start on the same AppDir asks the first one to come forward.
class SingleInstance {
 public:
  // Listens for second starts. To be made by the holder of the AppDir's lock only.
  explicit SingleInstance(const std::filesystem::path& appDir);

  // What a second start does here.
  void OnSecondStart(std::function<void()> handler) { handler_ = std::move(handler); }

  // Asks the program that runs on the AppDir to come forward. False where none with a window
  // answers.
  [[nodiscard]] static bool RaiseRunning(const std::filesystem::path& appDir);

 private:
  QLocalServer server_;
  std::function<void()> handler_;
};

}  // namespace tallyo
