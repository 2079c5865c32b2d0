#pragma once

#include <QCoreApplication>
#include <QTableView>

#include "form/report_list.h"
#include "ui/qt/mirror.h"
#include "ui/qt/report_model.h"
#include "ui/qt/roomy_style.h"

namespace tallyo {

// A report list on the screen: whole rows are selected, nothing is edited, Ctrl+C copies.
class ReportView : public QTableView {
  Q_DECLARE_TR_FUNCTIONS(ReportView)

 public:
  // The model shows the list; both outlive the view.
  ReportView(Mirror& mirror, ReportList& list, ReportModel& model, const QString& name,
             const QString& accessibleName, QWidget* parent);

  // What Ctrl+C takes: the selected rows, their cells separated by tabs.
  [[nodiscard]] virtual QString CopiedText() const;

  // The row height that goes with the view's font.
  void FitRows();

 protected:
  // Cells of one row, or of the headings for row -1, separated by tabs and ended by a line end.
  [[nodiscard]] QString Line(int row) const;
  virtual void ShowList();
  void changeEvent(QEvent* event) override;

 private:
  void TakeRow(int row);
  void ShowSelection();
  void Copy() const;

  Mirror& mirror_;
  ReportList& list_;
  ReportModel& model_;
  RoomyStyle style_;
  int shownSelection_ = 0;
};

}  // namespace tallyo
