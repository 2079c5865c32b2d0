#pragma once

#include <string>

#include "form/main_form.h"
#include "form/shared_state.h"
#include "links/monitored_links.h"
#include "platform/files.h"
#include "platform/message_boxes.h"

namespace tallyo {

// The file that an account's configuration is exported to. Throws RuntimeError where the account's
// name makes no file name.
[[nodiscard]] std::filesystem::path ExportFile(const SharedState& state,
                                               const std::string& account);

// Writes account, preferences and all monitored links into one text file.
class ConfigurationExport {
 public:
  ConfigurationExport(MainForm& form, const SharedState& state, MonitoredLinks& links, Files& files,
                      MessageBoxes& boxes)
      : form_(form), state_(state), links_(links), files_(files), boxes_(boxes) {}

  // Puts the text into the text screen's box, writes it to the file, and says so. Goes through the
  // links as the person would, so that the fields show the last one afterwards. A listed link that
  // has no record is left out. False where the file could not be written, which is not said. Throws
  // RuntimeError where a record cannot be read.
  bool Export();

 private:
  [[nodiscard]] std::string Header() const;
  [[nodiscard]] std::string LinkLines(int item);

  MainForm& form_;
  const SharedState& state_;
  MonitoredLinks& links_;
  Files& files_;
  MessageBoxes& boxes_;
};

}  // namespace tallyo
