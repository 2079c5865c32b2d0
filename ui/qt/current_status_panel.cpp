#include "ui/qt/current_status_panel.h"

#include <QHeaderView>

#include "ui/qt/panel_layout.h"
#include "ui/qt/report_view.h"
#include "ui/qt/twips.h"

namespace tallyo {
namespace {

constexpr int kNameColumn = 0;
constexpr int kCounterColumn = 1;
constexpr int kChangeColumn = 2;
constexpr int kNameWidth = 3300;    // twips
constexpr int kNumberWidth = 1300;  // twips

}  // namespace

CurrentStatusPanel::CurrentStatusPanel(ControlBinding& binding, QWidget* parent)
    : QWidget(parent), model_(binding.Form().ListView1, {kCounterColumn, kChangeColumn}) {
  auto* const list = new ReportView(binding.View(), binding.Form().ListView1, model_, "ListView1",
                                    "Current Status", this);
  model_.Refresh();
  QHeaderView& header = *list->horizontalHeader();
  header.setStretchLastSection(true);
  header.resizeSection(kNameColumn, Pixels(kNameWidth));
  header.resizeSection(kCounterColumn, Pixels(kNumberWidth));
  header.resizeSection(kChangeColumn, Pixels(kNumberWidth));
  PanelLayout(*this)->addWidget(list);
}

}  // namespace tallyo
