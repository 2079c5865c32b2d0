#pragma once

#include <QWidget>

#include "ui/qt/control_binding.h"
#include "ui/qt/report_model.h"

namespace tallyo {

// The current status screen: the links with their counters.
class CurrentStatusPanel : public QWidget {
 public:
  CurrentStatusPanel(ControlBinding& binding, QWidget* parent);

 private:
  ReportModel model_;
};

}  // namespace tallyo
