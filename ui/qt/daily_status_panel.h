#pragma once

#include <QBoxLayout>
#include <QCoreApplication>
#include <QWidget>

#include "ui/qt/control_binding.h"
#include "ui/qt/elided_label.h"
#include "ui/qt/month_grid_view.h"
#include "ui/qt/month_model.h"

namespace tallyo {

// The daily status screen: link, month and hour above the grid, the sums of the days below it.
class DailyStatusPanel : public QWidget {
  Q_DECLARE_TR_FUNCTIONS(DailyStatusPanel)

 public:
  DailyStatusPanel(ControlBinding& binding, QWidget* parent);

 private:
  [[nodiscard]] QLayout* SelectorRow(ControlBinding& binding);
  void ShowSums();

  MonthModel model_;
  MonthSumsModel sums_;
  ElidedLabel* hour_;
  QLabel* monthSum_;
};

}  // namespace tallyo
