#pragma once

#include <QAbstractTableModel>
#include <QCoreApplication>
#include <vector>

#include "ui/qt/report_model.h"

namespace tallyo {

// A month of hits, hours by days, with what its numbers say taken together.
class MonthModel : public ReportModel {
  Q_DECLARE_TR_FUNCTIONS(MonthModel)

 public:
  // The share of a cell in the greatest one of the month, 0 to 1.
  static constexpr int ShareRole = Qt::UserRole;

  explicit MonthModel(const ReportList& list) : ReportModel(list) {}

  void Refresh() override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

  // The hits of the day in a column of the view.
  [[nodiscard]] double DaySum(int column) const;

  // "Nov: 13 hits"
  [[nodiscard]] QString MonthSumText() const;

  // "15 Nov" for a column of the view.
  [[nodiscard]] QString DayName(int column) const;

 private:
  [[nodiscard]] QString InWords(const QModelIndex& index) const;
  [[nodiscard]] QString Spoken(const QModelIndex& index) const;
  [[nodiscard]] QString Day(int column) const;
  [[nodiscard]] QString MonthName() const;

  std::vector<double> daySums_;
  double monthSum_ = 0;
  double greatest_ = 0;
};

// The sums of a month's days, as one row under its grid.
class MonthSumsModel : public QAbstractTableModel {
  Q_DECLARE_TR_FUNCTIONS(MonthSumsModel)

 public:
  explicit MonthSumsModel(const MonthModel& month) : month_(month) {}

  // What the row is called.
  [[nodiscard]] static QString Name();

  void Refresh();

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

 private:
  [[nodiscard]] QString InWords(int column) const;

  const MonthModel& month_;
  int columns_ = 0;
};

// "12 hits", "1 hit".
[[nodiscard]] QString HitsText(double hits);

}  // namespace tallyo
