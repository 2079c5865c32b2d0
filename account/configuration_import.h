#pragma once

#include <filesystem>
#include <string>

#include "account/export_file.h"
#include "account/saved_data.h"
#include "form/main_form.h"
#include "form/shared_state.h"
#include "links/monitored_links.h"
#include "platform/files.h"
#include "platform/message_boxes.h"
#include "settings/settings.h"
#include "stats/service_requests.h"

namespace tallyo {

// Reads the configuration that another installation exported.
class ConfigurationImport {
 public:
  ConfigurationImport(MainForm& form, SharedState& state, Settings& settings, Files& files,
                      MessageBoxes& boxes, const ServiceRequests& requests, MonitoredLinks& links,
                      SavedData& savedData)
      : form_(form),
        state_(state),
        settings_(settings),
        files_(files),
        boxes_(boxes),
        requests_(requests),
        links_(links),
        savedData_(savedData) {}

  // Removes all saved data, then loads the export file of the account in the boxes. False where
  // that failed: the person has been told why, except where the loaded links do not hang together;
  // nothing of the file is left, and account and default URL are as they were. Refused while a
  // document is fetched.
  bool ImportConfiguration();

 private:
  [[nodiscard]] bool LoadExportFile();
  [[nodiscard]] ExportedConfiguration ReadFile();
  [[nodiscard]] bool CheckFileVersion(const std::string& line);
  [[nodiscard]] bool Store(const ExportedConfiguration& configuration);

  MainForm& form_;
  SharedState& state_;
  Settings& settings_;
  Files& files_;
  MessageBoxes& boxes_;
  const ServiceRequests& requests_;
  MonitoredLinks& links_;
  SavedData& savedData_;
};

}  // namespace tallyo
