#pragma once

#include "account/configuration_export.h"
#include "form/main_form.h"
#include "platform/clock.h"
#include "stats/service_requests.h"
#include "ui/screens.h"

namespace tallyo {

// The commands whose result is a text on the text screen, which it replaces.
class TextScreen {
 public:
  TextScreen(MainForm& form, const Clock& clock, const ServiceRequests& requests, Screens& screens,
             ConfigurationExport& configurationExport)
      : form_(form),
        clock_(clock),
        requests_(requests),
        screens_(screens),
        configurationExport_(configurationExport) {}

  void ExportStatsText();

  // Shows the counting link of the reference in the fields, whatever that is.
  void MakeCountingLink();

  // Does nothing, not even show the screen, while no link is listed. True where the file was
  // written.
  bool ExportConfiguration();

 private:
  MainForm& form_;
  const Clock& clock_;
  const ServiceRequests& requests_;
  Screens& screens_;
  ConfigurationExport& configurationExport_;
};

}  // namespace tallyo
