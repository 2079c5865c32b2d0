#include "ui/qt/text_combo.h"

#include <QListView>
#include <QStyleOptionComboBox>
#include <QStylePainter>

#include "ui/qt/control_binding.h"
#include "ui/qt/shown_string.h"

namespace tallyo {
namespace {

constexpr int kLeastCharacters = 8;

}  // namespace

void ComboItems::Refresh() {
  if (items_ != combo_.Items()) {
    beginResetModel();
    items_ = combo_.Items();
    endResetModel();
  }
}

int ComboItems::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(items_.size());
}

QVariant ComboItems::data(const QModelIndex& index, int role) const {
  if (role != Qt::DisplayRole || !index.isValid()) {
    return {};
  }
  return Shown(items_.at(static_cast<std::size_t>(index.row())));
}

int TextCombo::ListStyle::styleHint(StyleHint hint, const QStyleOption* option,
                                    const QWidget* widget, QStyleHintReturn* returned) const {
  return hint == SH_ComboBox_Popup ? 0 : QProxyStyle::styleHint(hint, option, widget, returned);
}

TextCombo::TextCombo(Mirror& mirror, ComboBox& combo, const QString& name,
                     const QString& accessibleName, QWidget* parent)
    : QComboBox(parent), mirror_(mirror), combo_(combo), items_(combo) {
  setObjectName(name);
  setAccessibleName(accessibleName);
  setStyle(&style_);
  setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(kLeastCharacters);
  auto* const list = new QListView(this);
  list->setUniformItemSizes(true);
  list->setTextElideMode(Qt::ElideRight);
  list->setAccessibleName(accessibleName);
  setView(list);
  setModel(&items_);
  mirror_.Follow(combo_, [this] { Show(); });
  connect(this, &QComboBox::activated, this,
          [this](int index) { mirror_.Send([&] { combo_.Choose(index); }); });
}

void TextCombo::Show() {
  items_.Refresh();
  const int found = combo_.Find(combo_.Text());
  setCurrentIndex(found < items_.rowCount() ? found : -1);
  text_ = Shown(combo_.Text());
  setAccessibleDescription(text_);
  ControlBinding::ShowState(combo_, *this);
  update();
}

void TextCombo::paintEvent(QPaintEvent* /*event*/) {
  QStylePainter painter(this);
  QStyleOptionComboBox option;
  initStyleOption(&option);
  painter.drawComplexControl(QStyle::CC_ComboBox, option);
  const QRect room =
      style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
  option.currentText = fontMetrics().elidedText(text_, Qt::ElideRight, room.width());
  painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

}  // namespace tallyo
