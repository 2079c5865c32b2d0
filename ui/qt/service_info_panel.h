#pragma once

#include <QWidget>

#include "ui/qt/control_binding.h"
#include "ui/qt/report_model.h"

namespace tallyo {

// The service info screen: the ten details.
class ServiceInfoPanel : public QWidget {
 public:
  ServiceInfoPanel(ControlBinding& binding, QWidget* parent);

 private:
  ReportModel model_;
};

}  // namespace tallyo
