// The least that showing another month needs: fill a table of 24 hours by 31 days from an array and
// paint it. Usage: month-floor WIDTH HEIGHT, the size of the table in pixels.

#include <QAbstractTableModel>
#include <QApplication>
#include <QHeaderView>
#include <QTableView>
#include <array>
#include <iostream>

#include "bench/painted.h"
#include "bench/rounds.h"

namespace {

constexpr int kHours = 24;
constexpr int kColumns = 32;

class Month : public QAbstractTableModel {
 public:
  using Cells = std::array<std::array<int, kColumns>, kHours>;

  void Fill(const Cells& cells) {
    cells_ = cells;
    emit dataChanged(index(0, 0), index(kHours - 1, kColumns - 1));
  }
  [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : kHours;
  }
  [[nodiscard]] int columnCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : kColumns;
  }
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
    if (role == Qt::TextAlignmentRole) {
      return QVariant::fromValue(Qt::AlignVCenter | Qt::AlignRight);
    }
    return role == Qt::DisplayRole
               ? QString::number(cells_[static_cast<std::size_t>(index.row())]
                                       [static_cast<std::size_t>(index.column())])
               : QVariant();
  }
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation /*orientation*/,
                                    int role) const override {
    return role != Qt::DisplayRole ? QVariant()
           : section == 0          ? QString("Nov, 2026")
                                   : QString::number(section);
  }

 private:
  Cells cells_{};
};

Month::Cells MadeCells(int round) {
  Month::Cells cells{};
  for (int hour = 0; hour < kHours; ++hour) {
    for (int day = 0; day < kColumns; ++day) {
      cells[static_cast<std::size_t>(hour)][static_cast<std::size_t>(day)] =
          day == 0 ? hour : 1 + (round + 7 * day + 3 * hour) % 150;
    }
  }
  return cells;
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() != 3) {
    std::cerr << "Usage: month-floor WIDTH HEIGHT\n";
    return 2;
  }
  const QSize size(arguments[1].toInt(), arguments[2].toInt());
  QTableView table;
  Month month;
  table.setModel(&month);
  table.verticalHeader()->hide();
  table.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  table.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  for (QHeaderView* const header : {table.horizontalHeader(), table.verticalHeader()}) {
    header->setMinimumSectionSize(1);
    header->setSectionResizeMode(QHeaderView::Fixed);
  }
  table.horizontalHeader()->setDefaultSectionSize(size.width() / kColumns);
  table.verticalHeader()->setDefaultSectionSize(
      (size.height() - table.horizontalHeader()->sizeHint().height()) / kHours);
  table.resize(size);
  tallyo::bench::Painted painted(*table.viewport());
  table.show();
  painted.Wait();
  int round = 0;
  tallyo::bench::ServeRounds([&] {
    for (int choice = 0; choice < 2; ++choice) {  // another link, then another month
      month.Fill(MadeCells(++round));
      painted.Wait();
    }
  });
}
