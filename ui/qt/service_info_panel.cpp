#include "ui/qt/service_info_panel.h"

#include <QHeaderView>

#include "ui/qt/panel_layout.h"
#include "ui/qt/report_view.h"

namespace tallyo {
ServiceInfoPanel::ServiceInfoPanel(ControlBinding& binding, QWidget* parent)
    : QWidget(parent), model_(binding.Form().ListView3) {
  auto* const list = new ReportView(binding.View(), binding.Form().ListView3, model_, "ListView3",
                                    "Service Details", this);
  model_.Refresh();
  list->horizontalHeader()->setStretchLastSection(true);
  list->horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
  PanelLayout(*this)->addWidget(list);
}

}  // namespace tallyo
