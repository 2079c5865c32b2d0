#pragma once

#include <QTableView>
#include <functional>

#include "ui/qt/month_cell_delegate.h"
#include "ui/qt/month_model.h"
#include "ui/qt/report_view.h"

namespace tallyo {

// The month grid: all its hours and days in sight at once. Ctrl+C copies all of it.
class MonthGridView : public ReportView {
 public:
  MonthGridView(Mirror& mirror, ReportList& list, MonthModel& model, QWidget* parent);

  // Runs when the numbers have changed.
  std::function<void()> OnShown;

  [[nodiscard]] QString CopiedText() const override;
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void ShowList() override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void FillHeight();

  MonthCellDelegate delegate_;
};

// The sums of the days, one row in the columns of the grid above it.
class MonthSumsView : public QTableView {
 public:
  MonthSumsView(MonthSumsModel& model, QWidget* parent);

 private:
  MonthCellDelegate delegate_;
};

}  // namespace tallyo
