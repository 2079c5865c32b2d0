#pragma once

#include <filesystem>
#include <vector>

#include "platform/shell.h"

namespace tallyo::test {

// A desktop that does nothing but keep what it was told.
struct RecordingShell final : Shell {
  void Open(const std::filesystem::path& document) override { opened.push_back(document); }
  void RunAtLogon(bool run) override { runAtLogon.push_back(run); }
  std::vector<std::filesystem::path> opened;
  std::vector<bool> runAtLogon;
};

}  // namespace tallyo::test
