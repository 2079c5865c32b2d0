#include "ui/qt/report_view.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QHeaderView>
#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "ui/qt/control_binding.h"

namespace tallyo {
namespace {

constexpr int kRoomInRow = 6;  // pixels above and below the text together

}  // namespace

ReportView::ReportView(Mirror& mirror, ReportList& list, ReportModel& model, const QString& name,
                       const QString& accessibleName, QWidget* parent)
    : QTableView(parent), mirror_(mirror), list_(list), model_(model) {
  setObjectName(name);
  setAccessibleName(accessibleName);
  setModel(&model_);
  setStyle(&style_);
  horizontalHeader()->setStyle(&style_);
  setEditTriggers(NoEditTriggers);
  setSelectionBehavior(SelectRows);
  setSelectionMode(ExtendedSelection);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setShowGrid(false);
  setAlternatingRowColors(true);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setHighlightSections(false);
  FitRows();
  auto* const copy = new QAction(tr("Copy"), this);
  copy->setShortcut(QKeySequence::Copy);
  copy->setShortcutContext(Qt::WidgetShortcut);
  connect(copy, &QAction::triggered, this, [this] { Copy(); });
  addAction(copy);
  setContextMenuPolicy(Qt::ActionsContextMenu);
  mirror_.Follow(list_, [this] { ShowList(); });
  connect(selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& current) { TakeRow(current.row() + 1); });
}

void ReportView::ShowList() {
  ControlBinding::ShowState(list_, *this);
  const int scrolled = verticalScrollBar()->value();
  model_.Refresh();
  verticalScrollBar()->setValue(scrolled);
  ShowSelection();
}

void ReportView::ShowSelection() {
  const int row = list_.SelectedRow();
  // A current cell without a selection, as reaching the list by Tab gives, is the view's own.
  if (std::exchange(shownSelection_, row) == row && currentIndex().isValid()) {
    return;
  }
  const QModelIndex wanted = model_.index(row - 1, std::max(currentIndex().column(), 0));
  selectionModel()->setCurrentIndex(
      wanted, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void ReportView::TakeRow(int row) {
  if (mirror_.Showing() || row < 1) {
    return;
  }
  mirror_.Send([&] {
    list_.Select(row);
    list_.ItemClick(row);
  });
}

QString ReportView::CopiedText() const {
  QModelIndexList rows = selectionModel()->selectedRows();
  if (rows.isEmpty() && currentIndex().isValid()) {
    rows = {currentIndex()};
  }
  std::sort(rows.begin(), rows.end());
  QString text;
  for (const QModelIndex& row : rows) {
    text += Line(row.row());
  }
  return text;
}

QString ReportView::Line(int row) const {
  QStringList cells;
  for (int column = 0; column < model_.columnCount(); ++column) {
    const QVariant cell = row < 0 ? model_.headerData(column, Qt::Horizontal, Qt::DisplayRole)
                                  : model_.data(model_.index(row, column), Qt::DisplayRole);
    cells += cell.toString().simplified();
  }
  return cells.join('\t') + '\n';
}

void ReportView::Copy() const {
  const QString text = CopiedText();
  if (!text.isEmpty()) {
    QApplication::clipboard()->setText(text);
  }
}

void ReportView::FitRows() {
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRoomInRow);
}

void ReportView::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::FontChange) {
    FitRows();
  }
}

}  // namespace tallyo
