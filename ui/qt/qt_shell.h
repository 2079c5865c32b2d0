#pragma once

#include <utility>

#include "platform/shell.h"
#include "ui/qt/logon_entry.h"

namespace tallyo {

// The person's desktop.
class QtShell final : public Shell {
 public:
  explicit QtShell(LogonEntry logonEntry) : logonEntry_(std::move(logonEntry)) {}

  void Open(const std::filesystem::path& document) override;
  void RunAtLogon(bool run) override { logonEntry_.Set(run); }

 private:
  LogonEntry logonEntry_;
};

}  // namespace tallyo
