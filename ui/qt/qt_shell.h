#pragma once

#include <utility>

#include "platform/shell.h"
#include "ui/qt/logon_entry.h"
#include "ui/qt/own_documents.h"

namespace tallyo {

// The person's desktop.
class QtShell final : public Shell {
 public:
  QtShell(OwnDocuments documents, LogonEntry logonEntry)
      : documents_(std::move(documents)), logonEntry_(std::move(logonEntry)) {}

  void Open(const std::filesystem::path& document) override;
  void RunAtLogon(bool run) override { logonEntry_.Set(run); }

 private:
  OwnDocuments documents_;
  LogonEntry logonEntry_;
};

}  // namespace tallyo
