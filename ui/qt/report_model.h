#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "form/report_list.h"

namespace tallyo {

// The rows and columns of a report list for a table view. The list may change at any time; what the
// view may ask for changes with Refresh only.
class ReportModel : public QAbstractTableModel {
 public:
  // numberColumns: the view's columns, from 0, whose texts stand at the right.
  explicit ReportModel(const ReportList& list, std::vector<int> numberColumns = {});

  // Tells the views what has changed. Rows are added or the whole is new; few changes are found out
  // one by one, since only the cells in sight are painted anyway.
  virtual void Refresh();

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

 protected:
  [[nodiscard]] const ReportList& List() const { return list_; }

  // The text of a cell; "" where the list has it no more.
  [[nodiscard]] const std::string& Cell(int row, int column) const;

 private:
  [[nodiscard]] bool HoldsNumbers(int column) const;

  const ReportList& list_;
  std::vector<int> numberColumns_;
  int rows_ = 0;
  int columns_ = 0;
};

}  // namespace tallyo
