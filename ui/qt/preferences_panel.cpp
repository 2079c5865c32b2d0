#include "ui/qt/preferences_panel.h"

#include <QCheckBox>
#include <QGridLayout>

#include "ui/qt/panel_layout.h"
#include "ui/qt/twips.h"

namespace tallyo {
namespace {

constexpr int kIntervalWidth = 1200;  // twips

QLabel* LabelOf(QLineEdit& field, const QString& text) {
  auto* const label = new QLabel(text, field.parentWidget());
  label->setBuddy(&field);
  return label;
}

}  // namespace

PreferencesPanel::PreferencesPanel(ControlBinding& binding, QWidget* parent) : QWidget(parent) {
  QVBoxLayout* const column = PanelLayout(*this);
  AddBoxes(binding, *column);
  column->addSpacing(column->spacing());
  AddFields(binding, *column);
  column->addStretch();
}

void PreferencesPanel::AddBoxes(ControlBinding& binding, QVBoxLayout& column) {
  for (std::size_t i = 0; i < binding.Form().Check1.size(); ++i) {
    auto* const box = new QCheckBox(this);
    box->setStyle(&style_);
    binding.Bind(binding.Form().Check1[i], *box, QString("Check1_%1").arg(i));
    column.addWidget(box);
  }
}

void PreferencesPanel::AddFields(ControlBinding& binding, QVBoxLayout& column) {
  auto* const fields = new QGridLayout;
  auto* const intervalCaption = new QLabel(this);
  auto* const interval = new QLineEdit(this);
  interval->setFixedWidth(Pixels(kIntervalWidth));
  interval->setAlignment(Qt::AlignRight);
  binding.Bind(binding.Form().Text2, *interval, *intervalCaption, "Text2");
  auto* const urlCaption = new QLabel(this);
  auto* const url = new QLineEdit(this);
  binding.Bind(binding.Form().Text3, *url, *urlCaption, "Text3");

  fields->addWidget(intervalCaption, 0, 0);
  fields->addWidget(LabelOf(*interval, "every"), 0, 1);
  fields->addWidget(interval, 0, 2);
  fields->addWidget(LabelOf(*interval, "Hrs."), 0, 3);
  fields->addWidget(urlCaption, 1, 0);
  fields->addWidget(url, 1, 1, 1, 4);
  fields->setColumnStretch(4, 1);
  column.addLayout(fields);
}

}  // namespace tallyo
