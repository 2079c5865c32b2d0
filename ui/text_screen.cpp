#include "ui/text_screen.h"

#include "account/statistics_text.h"
#include "links/counting_link.h"

namespace tallyo {

void TextScreen::ExportStatsText() {
  screens_.ShowScreen(screen::kText);
  form_.Text4.SetText(StatisticsText(form_.ListView1, clock_.Now()));
}

void TextScreen::MakeCountingLink() {
  const std::string script =
      CountingScript(form_.Text1[field::kAccount].Text(), form_.Text1[field::kReference].Text());
  screens_.ShowScreen(screen::kText);
  form_.Text4.SetText(CountingLinkText(requests_.ScriptAddress(script)));
}

bool TextScreen::ExportConfiguration() {
  if (form_.Combo1.Count() == 0) {
    return false;
  }
  screens_.ShowScreen(screen::kText);
  return configurationExport_.Export();
}

}  // namespace tallyo
