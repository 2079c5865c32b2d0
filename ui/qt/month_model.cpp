#include "ui/qt/month_model.h"

#include <algorithm>
#include <cmath>

#include "text/decimal_text.h"
#include "text/leading_number.h"
#include "ui/qt/shown_string.h"

namespace tallyo {
namespace {

QString TwoFigures(int number) { return QString("%1").arg(number, 2, 10, QChar('0')); }

QString NumberText(double number) { return QString::fromStdString(DecimalText(number)); }

// A number that any language gives the same form as this one, which may be too large for them.
int PluralNumber(double number) {
  constexpr double kEnough = 1e6;  // forms go by the last figures and by being small
  const double size = std::isfinite(number) ? std::floor(std::abs(number)) : kEnough;
  return static_cast<int>(size < kEnough ? size : kEnough + std::fmod(size, kEnough));
}

}  // namespace

QString HitsText(double hits) {
  if (hits == 1) {
    return MonthModel::tr("1 hit");
  }
  //: The number is an argument; it chooses the form of the word
  return MonthModel::tr("%1 hits", nullptr, PluralNumber(hits)).arg(NumberText(hits));
}

void MonthModel::Refresh() {
  daySums_.assign(List().Headings().size(), 0);
  monthSum_ = 0;
  greatest_ = 0;
  for (int row = 0; row < List().RowCount(); ++row) {
    for (int column = 1; column < static_cast<int>(daySums_.size()); ++column) {
      const double hits = LeadingNumber(Cell(row, column));
      daySums_[static_cast<std::size_t>(column)] += hits;
      monthSum_ += hits;
      greatest_ = std::max(greatest_, hits);
    }
  }
  ReportModel::Refresh();
}

QVariant MonthModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) {
    return {};
  }
  const bool hour = index.column() == 0;
  switch (role) {
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(Qt::AlignVCenter | Qt::AlignRight);
    case Qt::ToolTipRole:
      return hour ? QVariant() : InWords(index);
    case Qt::AccessibleTextRole:
      return hour ? QVariant() : Spoken(index);
    case ShareRole:
      return hour || greatest_ <= 0
                 ? 0.0
                 : std::max(0.0, LeadingNumber(Cell(index.row(), index.column()))) / greatest_;
    default:
      return ReportModel::data(index, role);
  }
}

QVariant MonthModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role == Qt::TextAlignmentRole) {
    return QVariant::fromValue(Qt::AlignCenter | static_cast<Qt::Alignment>(Qt::TextWordWrap));
  }
  return ReportModel::headerData(section, orientation, role);
}

double MonthModel::DaySum(int column) const {
  const auto at = static_cast<std::size_t>(column);
  return at < daySums_.size() ? daySums_[at] : 0;
}

// "15 Nov, 09:00 to 10:00: 12 hits"
QString MonthModel::InWords(const QModelIndex& index) const {
  //: A day and month, the hour that begins, the one that ends, and "12 hits"
  return tr("%1, %2:00 to %3:00: %4")
      .arg(DayName(index.column()), TwoFigures(index.row()), TwoFigures(index.row() + 1),
           HitsText(LeadingNumber(Cell(index.row(), index.column()))));
}

// "15, 09 hours, 12"
QString MonthModel::Spoken(const QModelIndex& index) const {
  const QString hits = Shown(Cell(index.row(), index.column()));
  //: Read aloud: a day of the month, an hour of the day, and a number of hits
  return tr("%1, %2 hours, %3")
      .arg(Day(index.column()), TwoFigures(index.row()), hits.isEmpty() ? tr("nothing") : hits);
}

QString MonthModel::Day(int column) const {
  return headerData(column, Qt::Horizontal, Qt::DisplayRole).toString().trimmed();
}

QString MonthModel::DayName(int column) const {
  //: A day and its month: 15 Nov
  return tr("%1 %2").arg(Day(column), MonthName());
}

QString MonthModel::MonthSumText() const {
  //: A month and "12 hits"
  return tr("%1: %2").arg(MonthName(), HitsText(monthSum_));
}

QString MonthModel::MonthName() const { return Day(0).left(3); }

QString MonthSumsModel::Name() { return tr("Sums of the days"); }

void MonthSumsModel::Refresh() {
  if (columns_ != month_.columnCount()) {
    beginResetModel();
    columns_ = month_.columnCount();
    endResetModel();
  } else if (columns_ > 0) {
    emit dataChanged(index(0, 0), index(0, columns_ - 1));
  }
}

int MonthSumsModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : 1; }

int MonthSumsModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columns_;
}

QVariant MonthSumsModel::data(const QModelIndex& index, int role) const {
  const double sum = month_.DaySum(index.column());
  switch (role) {
    case Qt::DisplayRole:
      return index.column() == 0 ? tr("Sum") : sum == 0 ? QString() : NumberText(sum);
    case Qt::ToolTipRole:
    case Qt::AccessibleTextRole:
      return index.column() == 0 ? Name() : InWords(index.column());
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(Qt::AlignVCenter | Qt::AlignRight);
    default:
      return {};
  }
}

QString MonthSumsModel::InWords(int column) const {
  //: A day with its month, and "12 hits"
  return tr("%1: %2").arg(month_.DayName(column), HitsText(month_.DaySum(column)));
}

}  // namespace tallyo
