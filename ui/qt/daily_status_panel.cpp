#include "ui/qt/daily_status_panel.h"

#include "ui/qt/panel_layout.h"
#include "ui/qt/text_combo.h"
#include "ui/qt/twips.h"

namespace tallyo {
namespace {

constexpr int kLinkWidth = 4800;   // twips
constexpr int kMonthWidth = 1200;  // twips

}  // namespace

DailyStatusPanel::DailyStatusPanel(ControlBinding& binding, QWidget* parent)
    : QWidget(parent),
      model_(binding.Form().ListView2),
      sums_(model_),
      hour_(new ElidedLabel(this)),
      monthSum_(new QLabel(this)) {
  QVBoxLayout* const column = PanelLayout(*this);
  column->addLayout(SelectorRow(binding));
  auto* const grid = new MonthGridView(binding.View(), binding.Form().ListView2, model_, this);
  grid->OnShown = [this] { ShowSums(); };
  auto* const sums = new MonthSumsView(sums_, this);
  hour_->setBuddy(grid);
  monthSum_->setBuddy(sums);
  auto* const tables = new QVBoxLayout;
  tables->setSpacing(0);
  for (QWidget* const table : {static_cast<QWidget*>(grid), static_cast<QWidget*>(sums)}) {
    table->setFixedWidth(grid->sizeHint().width());
    tables->addWidget(table);
  }
  tables->setStretchFactor(grid, 1);
  column->addLayout(tables, 1);
}

QLayout* DailyStatusPanel::SelectorRow(ControlBinding& binding) {
  MainForm& form = binding.Form();
  auto* const row = new QHBoxLayout;
  auto* const link = new TextCombo(binding.View(), form.Combo2, "Combo2", tr("Link"), this);
  link->setFixedWidth(Pixels(kLinkWidth));
  auto* const month = new TextCombo(binding.View(), form.Combo3, "Combo3", tr("Month"), this);
  month->setFixedWidth(Pixels(kMonthWidth));
  binding.Bind(form.Label5[2], *hour_, "Label5_2");
  monthSum_->setObjectName("MonthSum");
  row->addWidget(link);
  row->addWidget(month);
  row->addSpacing(2 * row->spacing());
  row->addWidget(hour_);
  row->addStretch(1);
  row->addWidget(monthSum_);
  return row;
}

void DailyStatusPanel::ShowSums() {
  sums_.Refresh();
  monthSum_->setText(model_.MonthSumText());
}

}  // namespace tallyo
