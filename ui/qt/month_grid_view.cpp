#include "ui/qt/month_grid_view.h"

#include <QHeaderView>
#include <algorithm>

#include "ui/qt/twips.h"

namespace tallyo {
namespace {

constexpr int kColumnWidth = 600;  // twips
constexpr int kHours = 24;
constexpr int kLeastRowHeight = 12;  // pixels
constexpr int kRoomInHeader = 6;     // pixels around its text, both sides together

void FixColumns(QTableView& view) {
  QHeaderView& header = *view.horizontalHeader();
  header.setMinimumSectionSize(1);
  header.setSectionResizeMode(QHeaderView::Fixed);
  header.setDefaultSectionSize(Pixels(kColumnWidth));
  view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  view.setShowGrid(true);
}

}  // namespace

MonthGridView::MonthGridView(Mirror& mirror, ReportList& list, MonthModel& model, QWidget* parent)
    : ReportView(mirror, list, model, "ListView2", "Daily Status", parent) {
  FixColumns(*this);
  setAlternatingRowColors(false);
  setSelectionMode(SingleSelection);
  setItemDelegate(&delegate_);
  horizontalHeader()->setSectionsClickable(false);
  horizontalHeader()->setStyle(nullptr);  // the columns are too narrow for roomy headings
  // The month and its year stand in two lines.
  QFont font = horizontalHeader()->font();
  ShrinkToFit(font, "2026", Pixels(kColumnWidth) - kRoomInHeader);
  horizontalHeader()->setFont(font);
  horizontalHeader()->setFixedHeight(2 * fontMetrics().height() + kRoomInHeader);
}

void MonthGridView::ShowList() {
  ReportView::ShowList();
  FillHeight();
  if (OnShown) {
    OnShown();
  }
}

QString MonthGridView::CopiedText() const {
  QString text = Line(-1);
  for (int row = 0; row < model()->rowCount(); ++row) {
    text += Line(row);
  }
  return text;
}

QSize MonthGridView::sizeHint() const {
  return {32 * Pixels(kColumnWidth) + 2 * frameWidth(), ReportView::sizeHint().height()};
}

void MonthGridView::resizeEvent(QResizeEvent* event) {
  ReportView::resizeEvent(event);
  FillHeight();
}

// All hours are in sight, and no room is left over: the first rows are a pixel higher where the
// height cannot be shared evenly.
void MonthGridView::FillHeight() {
  QHeaderView& header = *verticalHeader();
  const int height = std::max(viewport()->height() / kHours, kLeastRowHeight);
  const int left = viewport()->height() - height * kHours;
  header.setMinimumSectionSize(kLeastRowHeight);
  header.setDefaultSectionSize(height);
  for (int row = 0; row < header.count(); ++row) {
    header.resizeSection(row, height + (row < left ? 1 : 0));
  }
}

MonthSumsView::MonthSumsView(MonthSumsModel& model, QWidget* parent) : QTableView(parent) {
  setObjectName("DaySums");
  setAccessibleName(MonthSumsModel::Name());
  setModel(&model);
  setItemDelegate(&delegate_);
  setFocusPolicy(Qt::NoFocus);
  setSelectionMode(NoSelection);
  setEditTriggers(NoEditTriggers);
  FixColumns(*this);
  horizontalHeader()->hide();
  verticalHeader()->hide();
  const int height = fontMetrics().height() + 4;
  verticalHeader()->setMinimumSectionSize(1);
  verticalHeader()->setDefaultSectionSize(height);
  setFixedHeight(height + 2 * frameWidth());
}

}  // namespace tallyo
