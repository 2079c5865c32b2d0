#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "ui/qt/report_model.h"

namespace tallyo {

// A month of hits, hours by days, with what its numbers say taken together.
class MonthModel : public ReportModel {
 public:
  // The share of a cell in the greatest one of the month, 0 to 1.
  static constexpr int ShareRole = Qt::UserRole;

  explicit MonthModel(const ReportList& list) : ReportModel(list) {}

  void Refresh() override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

  // The hits of the day in a column of the view, and of the whole month.
  [[nodiscard]] double DaySum(int column) const;
  [[nodiscard]] double MonthSum() const { return monthSum_; }

  // "15 Nov" for a column of the view.
  [[nodiscard]] QString DayName(int column) const;

 private:
  [[nodiscard]] QString InWords(const QModelIndex& index) const;
  [[nodiscard]] QString Spoken(const QModelIndex& index) const;
  [[nodiscard]] QString Day(int column) const;

  std::vector<double> daySums_;
  double monthSum_ = 0;
  double greatest_ = 0;
};

// The sums of a month's days, as one row under its grid.
class MonthSumsModel : public QAbstractTableModel {
 public:
  explicit MonthSumsModel(const MonthModel& month) : month_(month) {}

  void Refresh();

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

 private:
  const MonthModel& month_;
  int columns_ = 0;
};

// "12 hits", "1 hit".
[[nodiscard]] QString HitsText(double hits);

}  // namespace tallyo
